// Says which limit of nesting a document passed.
#include <schema/Limits.h>

#include <ostream>

namespace schema {

static_assert(maximumDepth == 10'000, "the text below tells it");

NestedTooDeep::~NestedTooDeep() throw() = default;

const char* NestedTooDeep::what() const throw() {
    return limit_ == Limit::levels ? "document nested more than 10000 deep"
                                   : "document nested too deep for the stack of this thread";
}

void NestedTooDeep::print(std::ostream& out) const {
    out << what();
}

}  // namespace schema
