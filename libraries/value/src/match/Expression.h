// Compiled regular expressions.
#pragma once

#include "match/Pcre2.h"

#include <memory>
#include <string>

namespace otx {

// One expression, ready to match. Never changes, so any thread may use it.
class Expression {
public:
    // Throws kind 19. The text is valid UTF-8.
    explicit Expression(const std::string& text);
    Expression(const Expression&) = delete;
    Expression& operator=(const Expression&) = delete;
    ~Expression();

    const pcre2_code* code() const noexcept { return code_; }
    // Whether it can be matched in one pass over the text, without going back.
    bool isRegular() const noexcept { return isRegular_; }

private:
    pcre2_code* code_ = nullptr;
    bool isRegular_ = false;
};

// The expression of that text, out of those that were used before where it is one of them. Throws kind 19. Any thread.
std::shared_ptr<const Expression> compiledExpression(const std::string& text);

}  // namespace otx
