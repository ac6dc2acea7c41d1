// Who wants to see a compiled file field by field while it is read.
#pragma once

#include <schema/Registry.h>

#include <string>
#include <string_view>

namespace schema {

// One primitive of a file: its bytes are [at, end), [begin, at) is the padding in front of it.
struct Field {
    std::size_t begin;
    std::size_t at;
    std::size_t end;
    const char* role;  // what it is to its member: "present", "count", ...; empty for the member's value itself
    std::string value;
    bool text = false;  // whether the value is a string's text
};

// Told by the reader, in the order of the file, on its thread. What it throws ends the reading.
class FieldListener {
public:
    virtual ~FieldListener() = default;

    // The fields that follow belong to that member of the object whose fields are being read.
    virtual void member(std::u16string_view name) = 0;
    // An object of that type begins, for the present member of the one around it; or the innermost has ended.
    virtual void enter(const RegisteredType& entered) = 0;
    virtual void leave() = 0;
    virtual void field(const Field& field) = 0;

    // An object from its first field to its last, for a listener or for none.
    class Object {
    public:
        Object(FieldListener* listener, const RegisteredType& entered) : listener_(listener) {
            if (listener_ != nullptr) listener_->enter(entered);
        }
        Object(FieldListener* listener, const std::type_info& registered) : listener_(listener) {
            if (listener_ != nullptr) listener_->enter(*findType(registered));
        }
        ~Object() {
            if (listener_ != nullptr) listener_->leave();
        }
        Object(const Object&) = delete;
        Object& operator=(const Object&) = delete;

    private:
        FieldListener* const listener_;
    };
};

}  // namespace schema
