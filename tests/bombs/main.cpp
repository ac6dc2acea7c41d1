// otx_bombs: every bomb on stacks of three sizes; each must come to what is stated, soon, in little memory, and leave a process
// that works.
#include "Blast.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

using namespace bombs;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isMeasured = false;
#else
constexpr bool isMeasured = true;
#endif

constexpr std::chrono::milliseconds longest{1000};
constexpr std::size_t mostMemory = std::size_t{256} << 20U;

struct Stack {
    const char* name;
    std::size_t size;
    Outcomes::Texts Outcomes::*outcomes;
};
constexpr Stack stacks[] = {{"8 MB", 8U << 20U, &Outcomes::onLarge},
                            {"1 MB", 1U << 20U, &Outcomes::onMiddle},
                            {"256 KB", 256U << 10U, &Outcomes::onSmall}};

std::string mistakeOf(const Outcomes::Texts& stated, const Blast& blast) {
    if (!blast.death.empty()) return "died: " + blast.death;
    const bool isStated = std::any_of(stated.begin(), stated.end(),
                                      [&](const std::string& begin) { return blast.outcome.starts_with(begin); });
    if (!isStated) return "not the stated outcome";
    if (blast.next != usualOutcome()) return "the next run: " + blast.next;
    if (isMeasured && blast.processorTime > longest) return "takes too long";
    if (isMeasured && blast.memory > mostMemory) return "takes too much memory";
    return "";
}

bool holds(const Bomb& bomb) {
    const std::string input = bomb.make();
    bool isGood = true;
    for (const Stack& stack : stacks) {
        const Blast result = blast(bomb, input, stack.size);
        const std::string mistake = mistakeOf(bomb.outcomes.*stack.outcomes, result);
        std::printf("%s%s, %s: %lld ms, %zu MB: %s\n", mistake.empty() ? "" : (mistake + ": ").c_str(), bomb.name.c_str(), stack.name,
                    static_cast<long long>(result.processorTime.count()), result.memory >> 20U,
                    result.outcome.substr(0, 90).c_str());
        isGood = isGood && mistake.empty();
    }
    return isGood;
}

}  // namespace

// With an argument only those whose name begins with it.
int main(int argc, char** argv) try {
    bool isGood = true;
    int count = 0;
    for (const Bomb& bomb : allBombs()) {
        if (argc > 1 && !bomb.name.starts_with(argv[1])) continue;
        ++count;
        if (bomb.takesAllThreads && !isMeasured)
            std::printf("left out under a sanitizer: %s\n", bomb.name.c_str());
        else
            isGood = holds(bomb) && isGood;
    }
    return isGood && count != 0 ? EXIT_SUCCESS : EXIT_FAILURE;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "otx_bombs: %s\n", failure.what());
    return EXIT_FAILURE;
}
