// Enters the document classes in the tree runtime's maps.
#include <schema/Registry.h>

#include <xsd/cxx/tree/type-factory-map.hxx>

#include <map>
#include <typeindex>
#include <unordered_map>
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
    std::map<QualifiedName, const RegisteredType*> byName;
    std::unordered_map<std::type_index, const RegisteredType*> byClass;
};

Maps& maps() {
    static Maps* const made = new Maps;
    return *made;
}

}  // namespace

Registration::Registration(std::span<const RegisteredType> types, std::span<const Substitute> substitutes) {
    for (const RegisteredType& entry : types) {
        const QualifiedName name(entry.name.name, entry.name.space);
        maps().factories.register_type(name, entry.factory);
        maps().byName.emplace(name, &entry);
        maps().byClass.emplace(*entry.identity, &entry);
    }
    for (const Substitute& entry : substitutes) maps().substitutes.push_back(entry);
}

Factory findFactory(const std::string& name, const std::string& space) {
    return maps().factories.find(QualifiedName(name, space));
}

const RegisteredType* findType(const std::string& name, const std::string& space) {
    const auto found = maps().byName.find(QualifiedName(name, space));
    return found == maps().byName.end() ? nullptr : found->second;
}

const RegisteredType* findType(const std::type_info& identity) {
    const auto found = maps().byClass.find(identity);
    return found == maps().byClass.end() ? nullptr : found->second;
}

std::size_t registeredTypes() {
    return maps().byName.size();
}

std::vector<TypeName> registeredNames() {
    std::vector<TypeName> names;
    names.reserve(maps().byName.size());
    for (const auto& [name, entry] : maps().byName) names.push_back(entry->name);
    return names;
}

const Substitute* findSubstitute(std::uint8_t group, NameId name, NamespaceId space) {
    for (const Substitute& entry : maps().substitutes)
        if (entry.group == group && entry.name == name && entry.space == space) return &entry;
    return nullptr;
}

}  // namespace schema
