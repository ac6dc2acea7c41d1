// One input that is meant to hurt.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace bombs {

// What must come of a bomb on each of the stacks: the outcome begins with one of these. There are two only where the size of
// the compiler's frames decides whether the stack is enough.
struct Outcomes {
    using Texts = std::vector<std::string>;

    Outcomes(const std::string& one) : Outcomes({one}, {one}, {one}) {}
    Outcomes(Texts large, Texts middle, Texts small)
        : onLarge(std::move(large)), onMiddle(std::move(middle)), onSmall(std::move(small)) {}

    Texts onLarge;   // 8 MB
    Texts onMiddle;  // 1 MB
    Texts onSmall;   // 256 KB
};

struct Bomb {
    std::string name;
    // Made ahead, by the process that waits for the one that is bombed.
    std::function<std::string()> make;
    // What becomes of it, in words: outcomeOf... below.
    std::string (*use)(const std::string& input);
    Outcomes outcomes;
    // Ends only where threads can't be had any more, at which a sanitizer itself gives up.
    bool takesAllThreads = false;
};

// Loads the document: "loaded", or what was thrown. Then runs its procedure main, if there is one: the out parameters.
std::string outcomeOfDocument(const std::string& text);
// Reads the text as JSON, writes it again and compares it with itself: "read", or what was thrown.
std::string outcomeOfJson(const std::string& text);
// The pattern ends at the first line end, the text follows.
std::string outcomeOfMatch(const std::string& input);
// The compiled document with each of its first words replaced by edge values, one after the other: the first outcome that is
// neither a document nor the stated refusal, else "held".
std::string outcomeOfWords(const std::string& compiled);

// All of them.
std::vector<Bomb> allBombs();

}  // namespace bombs
