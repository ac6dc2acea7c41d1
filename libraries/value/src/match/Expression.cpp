// Compiled regular expressions.
#include "match/Expression.h"

#include <otx/Stack.h>

#include <array>
#include <functional>
#include <mutex>
#include <new>
#include <unordered_map>

#include "match/Failure.h"
#include "match/Translation.h"

namespace otx {

namespace {

// Without possessive repetitions every step back counts as a step, which is what limits a match.
constexpr std::uint32_t options = PCRE2_UTF | PCRE2_NO_UTF_CHECK | PCRE2_ANCHORED | PCRE2_DOLLAR_ENDONLY |
                                  PCRE2_ALLOW_EMPTY_CLASS | PCRE2_MATCH_UNSET_BACKREF | PCRE2_NO_AUTO_POSSESS;

// What the compiler needs besides its recursion over groups: measured 26 KB, three times that with sanitizers.
constexpr std::size_t stackOfCompiler = 80 * 1024;

int isStackTooLow(std::uint32_t, void*) { return stackIsLow() ? 1 : 0; }

struct FreeContext {
    void operator()(pcre2_compile_context* context) const noexcept { pcre2_compile_context_free(context); }
};

std::string messageOf(int error) {
    std::array<PCRE2_UCHAR, 256> room{};
    pcre2_get_error_message(error, room.data(), room.size());
    return reinterpret_cast<const char*>(room.data());
}

// Those that were used before. Full, it begins anew: no sequence has that many expressions in use at a time.
class Expressions {
public:
    std::shared_ptr<const Expression> find(const std::string& text) {
        const std::lock_guard guard(tableLock_);
        const auto found = table_.find(text);
        return found != table_.end() ? found->second : nullptr;
    }

    void add(const std::string& text, const std::shared_ptr<const Expression>& expression) {
        if (text.size() > longestText) return;
        const std::lock_guard guard(tableLock_);
        if (table_.size() == mostTexts) table_.clear();
        table_.emplace(text, expression);
    }

private:
    static constexpr std::size_t longestText = 1024;
    static constexpr std::size_t mostTexts = 256;

    std::mutex tableLock_;
    std::unordered_map<std::string, std::shared_ptr<const Expression>> table_;
};

Expressions& expressions() {
    // Outlives every thread that may still match while the process ends.
    static Expressions& all = *new Expressions;
    return all;
}

}  // namespace

Expression::Expression(const std::string& text) {
    if (stackLeft() < stackOfCompiler) failMatch("too little stack is left for an expression");
    const Translation translation = translateExpression(text);
    isRegular_ = !translation.hasLookahead && !translation.hasBackReference;
    const std::unique_ptr<pcre2_compile_context, FreeContext> context(pcre2_compile_context_create(nullptr));
    if (context == nullptr) throw std::bad_alloc();
    // A lookahead and a back-reference bring a group of their own each, and one is around all.
    pcre2_set_parens_nest_limit(context.get(), 2 * deepestNesting + 3);
    pcre2_set_compile_recursion_guard(context.get(), isStackTooLow, nullptr);
    int error = 0;
    PCRE2_SIZE place = 0;
    code_ = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(translation.pattern.data()), translation.pattern.size(), options,
                          &error, &place, context.get());
    if (code_ == nullptr) failMatch(messageOf(error));
}

Expression::~Expression() { pcre2_code_free(code_); }

std::shared_ptr<const Expression> compiledExpression(const std::string& text) {
    if (auto known = expressions().find(text)) return known;
    auto expression = std::make_shared<const Expression>(text);
    expressions().add(text, expression);
    return expression;
}

}  // namespace otx
