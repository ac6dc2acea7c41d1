// Matching a text against a regular expression, within limits of work, memory and stack.
#include <otx/Interruption.h>
#include <otx/Stack.h>
#include <otx/value/IString.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "Characters.h"
#include "NumberValues.h"
#include "StringOperations.h"
#include "Utf8.h"
#include "match/Expression.h"
#include "match/Failure.h"
#include "match/Translation.h"

namespace otx {

constinit thread_local const detail::Interruption* detail::interruption = nullptr;

namespace {

// Steps of the backtracking matcher, some 30 million in a second. A match that takes more than the first number begins
// anew with the second, and may be interrupted in between; that is where it is given up.
constexpr std::uint32_t stepLimits[] = {1'000'000, 10'000'000};
// What these steps may keep, in KB.
constexpr std::uint32_t memoryLimit = 64 * 1024;
// Bytes that lookaheads and back-references may read, which the steps don't count.
constexpr std::size_t readLimit = 1'000'000'000;
// Comparisons of states that a match in one pass may take: it makes up to the square of their number at each character.
constexpr double comparisonLimit = 4e8;
constexpr double fewestStates = 24;
constexpr double mostStates = 1000;

// Either matcher uses 32 KB, more with sanitizers.
constexpr std::size_t stackOfMatcher = 80 * 1024;

struct FreeData {
    void operator()(pcre2_match_data* data) const noexcept { pcre2_match_data_free(data); }
};
struct FreeContext {
    void operator()(pcre2_match_context* context) const noexcept { pcre2_match_context_free(context); }
};

// What lookaheads and back-references read.
class Reading {
public:
    static int count(pcre2_callout_block* block, void* reading) noexcept {
        return static_cast<Reading*>(reading)->add(*block) ? 0 : PCRE2_ERROR_CALLOUT;
    }

private:
    bool add(const pcre2_callout_block& block) noexcept {
        const std::size_t read = block.callout_number == lookaheadCallout ? sinceLast(block.current_position)
                                                                          : lengthOfGroup(block);
        if (read > left_) return false;
        left_ -= read;
        return true;
    }

    std::size_t sinceLast(std::size_t position) noexcept {
        const std::size_t last = std::exchange(position_, position);
        return position > last ? position - last : last - position;
    }

    static std::size_t lengthOfGroup(const pcre2_callout_block& block) noexcept {
        if (block.callout_number == lastGroupCallout) return block.subject_length;
        if (block.callout_number >= block.capture_top) return 0;
        const PCRE2_SIZE begin = block.offset_vector[2 * block.callout_number];
        const PCRE2_SIZE end = block.offset_vector[2 * block.callout_number + 1];
        return begin == PCRE2_UNSET || end < begin ? 0 : end - begin;
    }

    std::size_t left_ = readLimit;
    std::size_t position_ = 0;
};

class Matching {
public:
    Matching(const Expression& expression, const std::string& text)
        : expression_(expression), text_(text), data_(pcre2_match_data_create(1, nullptr)) {
        if (data_ == nullptr) throw std::bad_alloc();
    }

    bool decide() {
        int result = PCRE2_ERROR_MATCHLIMIT;
        for (const std::uint32_t steps : stepLimits) {
            result = matchByBacktracking(steps);
            if (!isLimit(result)) return answer(result);
            checkInterruption();
            // It may be out of proportion for the one matcher and nothing for the other.
            if (steps == stepLimits[0] && expression_.isRegular()) {
                const int passed = matchInOnePass();
                if (passed != PCRE2_ERROR_DFA_WSSIZE) return answer(passed);
            }
            if (result == PCRE2_ERROR_HEAPLIMIT) break;
        }
        return answer(result);
    }

private:
    static bool isLimit(int result) noexcept {
        return result == PCRE2_ERROR_MATCHLIMIT || result == PCRE2_ERROR_HEAPLIMIT;
    }

    static bool answer(int result) {
        if (result >= 0) return true;
        if (result == PCRE2_ERROR_NOMATCH) return false;
        if (result == PCRE2_ERROR_NOMEMORY) throw std::bad_alloc();
        if (result == PCRE2_ERROR_HEAPLIMIT) failMatch("it takes too much memory");
        if (result == PCRE2_ERROR_MATCHLIMIT || result == PCRE2_ERROR_CALLOUT) failMatch("it takes too many steps");
        failMatch("failure " + std::to_string(result) + " of the matcher");
    }

    PCRE2_SPTR subject() const noexcept { return reinterpret_cast<PCRE2_SPTR>(text_.data()); }

    int matchByBacktracking(std::uint32_t steps) {
        if (!context_) {
            context_.reset(pcre2_match_context_create(nullptr));
            if (context_ == nullptr) throw std::bad_alloc();
            pcre2_set_heap_limit(context_.get(), memoryLimit);
        }
        Reading reading;
        pcre2_set_match_limit(context_.get(), steps);
        pcre2_set_callout(context_.get(), Reading::count, &reading);
        const int result = pcre2_match(expression_.code(), subject(), text_.size(), 0, PCRE2_NO_UTF_CHECK, data_.get(),
                                       context_.get());
        pcre2_set_callout(context_.get(), nullptr, nullptr);
        return result;
    }

    // In time in proportion to the text. PCRE2_ERROR_DFA_WSSIZE when the expression takes too many states.
    int matchInOnePass() {
        const double length = static_cast<double>(text_.size()) + 1;
        const auto states = static_cast<std::size_t>(
            std::clamp(std::sqrt(2 * comparisonLimit / length), fewestStates, mostStates));
        std::vector<int> room(2 + 6 * states);
        return pcre2_dfa_match(expression_.code(), subject(), text_.size(), 0, PCRE2_NO_UTF_CHECK, data_.get(), nullptr,
                               room.data(), room.size());
    }

    const Expression& expression_;
    const std::string& text_;
    std::unique_ptr<pcre2_match_data, FreeData> data_;
    std::unique_ptr<pcre2_match_context, FreeContext> context_;
};

bool matches(const std::string& text, const std::string& expression) {
    const auto compiled = compiledExpression(expression);
    if (stackLeft() < stackOfMatcher) failMatch("too little stack is left for an expression");
    return Matching(*compiled, text).decide();
}

}  // namespace

COtxValue stringMatch(const Characters& text, const COtxValue& expression) {
    const Characters pattern = charactersOf(expression);
    if (text.areWellFormed() && pattern.areWellFormed()) return makeBoolean(matches(text.text(), pattern.text()));
    return makeBoolean(matches(repairUtf8(text.text()), repairUtf8(pattern.text())));
}

}  // namespace otx
