// How hard the stress tests press, and with what chance.
#include "Stress.h"

#include <atomic>
#include <charconv>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace stress {

namespace {

template <class Number>
std::optional<Number> numberOf(const char* variable) {
    const char* const text = std::getenv(variable);
    if (text == nullptr) return std::nullopt;
    const std::string_view digits(text);
    Number number{};
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (failure != std::errc() || end != digits.data() + digits.size() || number <= 0)
        throw std::invalid_argument(std::string(variable) + ": expected a positive whole number");
    return number;
}

}  // namespace

int factor() { return numberOf<int>("VELKOTX_STRESS").value_or(1); }

std::mt19937_64 generator() {
    std::random_device device;
    const std::uint64_t seed = numberOf<std::uint64_t>("VELKOTX_SEED").value_or(device() + 1ULL);
    std::cout << "VELKOTX_SEED=" << std::to_string(seed) << std::endl;
    return std::mt19937_64(seed);
}

void dawdle(std::mt19937_64& random, unsigned largest) {
    const std::uint64_t turns = random() % ((std::uint64_t{1} << (random() % (largest + 1))) + 1);
    std::atomic<std::uint64_t> turn{0};
    while (turn.load(std::memory_order_relaxed) < turns) turn.fetch_add(1, std::memory_order_relaxed);
}

}  // namespace stress
