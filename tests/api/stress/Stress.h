// How hard the stress tests press, and with what chance.
#pragma once

#include <cstdint>
#include <random>

namespace stress {

// The environment variable VELKOTX_STRESS, a whole number; 1 without it. All counts and times are multiplied by it.
int factor();

// A generator with a new seed, which it prints. VELKOTX_SEED repeats an earlier one.
std::mt19937_64 generator();

// Keeps the thread busy for a random time of 0 to 2^`largest` turns, short ones being as likely as long ones.
void dawdle(std::mt19937_64& random, unsigned largest);

// Whether times tell anything: not when a sanitizer slows the program down.
#ifdef __has_feature
#if __has_feature(thread_sanitizer) || __has_feature(address_sanitizer)
inline constexpr bool isTimed = false;
#define STRESS_IS_TIMED_SET
#endif
#endif
#ifndef STRESS_IS_TIMED_SET
#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
inline constexpr bool isTimed = false;
#else
inline constexpr bool isTimed = true;
#endif
#endif

}  // namespace stress
