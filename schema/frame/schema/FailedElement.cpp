// Takes note of the element that failed.
#include <schema/FailedElement.h>

namespace schema {

namespace {

thread_local FailedElement* currentNote = nullptr;

}  // namespace

FailedElement::FailedElement() : outer_(currentNote) {
    currentNote = this;
}

FailedElement::~FailedElement() {
    currentNote = outer_;
}

void FailedElement::note(const DomElement& element) noexcept {
    if (currentNote != nullptr && currentNote->element_ == nullptr) currentNote->element_ = &element;
}

}  // namespace schema
