// What a document may have at the most, in either form, and the error for one that is nested deeper.
#pragma once

#include <schema/Runtime.h>

#include <cstddef>

namespace schema {

// Levels of nested elements; attributes of one element.
inline constexpr std::size_t maximumDepth = 10'000;
inline constexpr std::size_t maximumAttributes = 10'000;

// A document whose objects are nested so deep that they pass the limit, or that building the tree would exhaust the
// thread's stack.
class NestedTooDeep : public Exception {
public:
    enum class Limit { levels, stack };
    explicit NestedTooDeep(Limit limit) : limit_(limit) {}
    ~NestedTooDeep() throw() override;
    const char* what() const throw() override;

protected:
    void print(std::ostream& out) const override;

private:
    Limit limit_;
};

}  // namespace schema
