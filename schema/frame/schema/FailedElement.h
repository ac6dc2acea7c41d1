// Which element of a document the tree couldn't be built from.
#pragma once

#include <schema/Runtime.h>

namespace schema {

// Takes note of the element at which reading got stuck, as long as it lives, for the thread that reads the document: the
// exceptions of the tree runtime don't carry it.
class FailedElement {
public:
    FailedElement();
    ~FailedElement();
    FailedElement(const FailedElement&) = delete;
    FailedElement& operator=(const FailedElement&) = delete;

    // Called while the exception is on its way. The first call counts: it is the innermost element's.
    static void note(const DomElement& element) noexcept;

    // Null while none is noted. Lives as long as the DOM.
    const DomElement* element() const noexcept { return element_; }

private:
    FailedElement* const outer_;
    const DomElement* element_ = nullptr;
};

}  // namespace schema
