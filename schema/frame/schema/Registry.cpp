// Enters the document classes in the tree runtime's maps.
#include <schema/Registry.h>

#include <xsd/cxx/tree/type-factory-map.hxx>

#include <vector>

namespace schema {

namespace {

using FactoryMap = xsd::cxx::tree::type_factory_map<char>;
using QualifiedName = FactoryMap::qualified_name;

// Made at the first registration, whichever translation unit comes first, and never destroyed, since documents may be
// loaded by other static objects.
struct Maps {
    FactoryMap factories;
    std::vector<Substitute> substitutes;
    std::size_t types = 0;
};

Maps& maps() {
    static Maps* const made = new Maps;
    return *made;
}

}  // namespace

Registration::Registration(std::span<const RegisteredType> types, std::span<const Substitute> substitutes) {
    for (const RegisteredType& entry : types)
        maps().factories.register_type(QualifiedName(entry.name.name, entry.name.space), entry.factory);
    maps().types += types.size();
    for (const Substitute& entry : substitutes) maps().substitutes.push_back(entry);
}

Factory findFactory(const std::string& name, const std::string& space) {
    return maps().factories.find(QualifiedName(name, space));
}

std::size_t registeredTypes() {
    return maps().types;
}

const Substitute* findSubstitute(std::uint8_t group, NameId name, NamespaceId space) {
    for (const Substitute& entry : maps().substitutes)
        if (entry.group == group && entry.name == name && entry.space == space) return &entry;
    return nullptr;
}

}  // namespace schema
