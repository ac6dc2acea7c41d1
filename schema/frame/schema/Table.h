// What the generator tells of each class: its members and attributes as data, for the one loop that reads them all.
#pragma once

#include <schema/Runtime.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace schema {

// Positions in the generated lists of names and namespaces; 0 is a name that no class knows.
using NameId = std::uint16_t;
using NamespaceId = std::uint8_t;

class InputStream;
class OutputStream;

using Factory = std::unique_ptr<type> (*)(const DomElement&, flags, container*);

// A registered type: its name and how objects of it are made. An abstract type has no factory.
struct TypeName {
    const char* name;
    const char* space;
};

enum class Cardinality : std::uint8_t { one, optional, sequence };

// What the loop does with a holder of element members, whatever its type.
struct ElementHolder {
    Cardinality cardinality;
    bool (*present)(const void* holder);
    // Takes the object over if it is of the holder's type; false if it isn't.
    bool (*take)(void* holder, std::unique_ptr<type>& object);
    std::size_t (*count)(const void* holder);
    void (*insert)(const void* holder, OutputStream& stream);
    void (*extract)(void* holder, InputStream& stream, flags f, container* owner);
};

struct Element {
    NameId name;
    NamespaceId space;
    // Position of the substitution group that this element heads, 0 for none.
    std::uint8_t substitution;
    // Where in the object its holder lies, in bytes from the object's beginning.
    std::size_t offset;
    const ElementHolder* operations;
    TypeName memberType;
    Factory factory;

    void* holder(type& object) const { return reinterpret_cast<std::byte*>(&object) + offset; }
};

enum class Presence : std::uint8_t { required, optional, defaulted };

// What the loop does with a holder of an attribute.
struct AttributeHolder {
    bool (*present)(const void* holder);
    void (*parse)(void* holder, const char16_t* text, const DomElement& element, flags f, container* owner);
    void (*insert)(const void* holder, OutputStream& stream);
    void (*extract)(void* holder, InputStream& stream, flags f, container* owner);
};

struct Attribute {
    NameId name;
    // 0 for an attribute without a namespace, as nearly all are; those of one class are alike.
    NamespaceId space;
    Presence presence;
    std::size_t offset;
    const AttributeHolder* operations;
    // Fills the holder with a clone of the attribute's static default.
    void (*setDefault)(void* holder, container* owner);

    void* holder(type& object) const { return reinterpret_cast<std::byte*>(&object) + offset; }
};

struct ClassTable {
    const ClassTable* base;
    // The nearest base that has members, null if none has.
    const ClassTable* inherited;
    std::span<const Element> elements;
    std::span<const Attribute> attributes;
    // Where the class records the document order of its elements, else null.
    std::vector<content_order>* (*order)(type& object);

    ClassTable(const ClassTable* baseTable, std::span<const Element> ownElements, std::span<const Attribute> ownAttributes,
               std::vector<content_order>* (*ownOrder)(type&))
        : base(baseTable), inherited(baseTable == nullptr || baseTable->hasMembers() ? baseTable : baseTable->inherited),
          elements(ownElements), attributes(ownAttributes), order(ownOrder) {}

    bool hasMembers() const { return !elements.empty() || !attributes.empty(); }
};

}  // namespace schema
