// One input that is meant to hurt.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bombs {

struct Bomb {
    std::string name;
    // Made ahead, by the process that waits for the one that is bombed.
    std::function<std::string()> make;
    // What becomes of it, in words: outcomeOf... below.
    std::string (*use)(const std::string& input);
    // The outcome begins with one of these, on a stack of any size.
    std::vector<std::string> allowed;
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
