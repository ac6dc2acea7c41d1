// The registered types and substitution groups, and the generated lists of names.
#pragma once

#include <schema/Table.h>

#include <span>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

namespace schema {

struct RegisteredType {
    TypeName name;
    Factory factory;
    const std::type_info* identity;
    // The members of the class, null for a simple type.
    const ClassTable* table;
    void (*insert)(OutputStream&, const type&);
    std::unique_ptr<type> (*extract)(InputStream&, flags, container*);
};

struct Substitute {
    TypeName head;
    NameId name;
    NamespaceId space;
    std::uint8_t group;
    TypeName elementType;
    Factory factory;
};

// Enters the types of one module in the tree runtime's maps; a static object of each generated module makes one.
class Registration {
public:
    explicit Registration(std::span<const RegisteredType> types, std::span<const Substitute> substitutes = {});
};

// The factory registered under a qualified name, null if there is none.
Factory findFactory(const std::string& name, const std::string& space);
// A registered type by its name or by the class of its objects, null if there is none.
const RegisteredType* findType(const std::string& name, const std::string& space);
const RegisteredType* findType(const std::type_info& identity);
// How many types are registered, and their names, in order.
std::size_t registeredTypes();
std::vector<TypeName> registeredNames();
// The member of a substitution group that an element stands for, null if it is none.
const Substitute* findSubstitute(std::uint8_t group, NameId name, NamespaceId space);

// The generated lists, sorted by nothing but their numbers; number 0 is the unknown name.
std::span<const std::u16string_view> elementNames();
std::span<const std::u16string_view> namespaceNames();

}  // namespace schema
