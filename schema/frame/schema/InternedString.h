// A string of the document that names a variable, procedure or parameter, with its interned key.
#pragma once

#include <schema/Arena.h>
#include <schema/Name.h>
#include <schema/Runtime.h>

namespace schema {

class InternedString : public string {
public:
    static void* operator new(std::size_t size) { return Arena::allocate(size); }
    static void operator delete(void* object) { Arena::release(object); }

    InternedString() = default;
    explicit InternedString(const std::string& text, const DomElement* element = nullptr, flags f = 0,
                            container* owner = nullptr)
        : string(text, element, f, owner), key_(*this) {}
    explicit InternedString(const DomElement& element, flags f = 0, container* owner = nullptr)
        : string(element, f, owner), key_(*this) {}
    InternedString(const InternedString& other, flags f = 0, container* owner = nullptr)
        : string(other, f, owner), key_(other.key_) {}
    InternedString& operator=(const InternedString&) = default;

    InternedString* _clone(flags f = 0, container* owner = nullptr) const override {
        return new InternedString(*this, f, owner);
    }

    const otxns::Name& key() const { return key_; }

private:
    otxns::Name key_;
};

}  // namespace schema
