// The one loop that builds document objects from DOM elements, driven by the classes' tables.
#pragma once

#include <schema/Registry.h>
#include <schema/Table.h>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace schema {

// Fills an object from its element: for each class of its chain, base first, the child elements in the order of the
// members, then the attributes. Called by the constructor of the most derived generated class.
void parse(type& object, const ClassTable& table, const DomElement& element, flags f);

// The state of reading one document, on the stack of the thread that reads it: the names already met, by the addresses
// at which the parser pools them, and the namespace prefixes in scope.
class Reader {
public:
    Reader();
    ~Reader();
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    // The reader at work on this thread, null between documents.
    static Reader* current() noexcept;

    NameId name(const char16_t* pooled);
    NamespaceId space(const char16_t* pooled);

    // Makes the object of an element that stands for a member: by its xsi:type if it has one, else by the given factory.
    // Throws no_type_info for a type that nothing is known of, or for an abstract member without xsi:type.
    std::unique_ptr<type> create(const DomElement& element, Factory factory, TypeName memberType, flags f,
                                 container* owner);
    // The qualified name of the type that create() would choose by xsi:type; the member's own without one.
    std::pair<std::string, std::string> typeName(const DomElement& element, TypeName memberType);

private:
    class Scope;
    Factory chosen(const char16_t* typeAttribute, Factory factory);
    std::pair<std::string, std::string> resolve(std::u16string_view text);

    Reader* outer_;
    std::unordered_map<const void*, NameId> names_;
    std::vector<std::pair<const char16_t*, NamespaceId>> spaces_;
    // For each prefix the namespaces bound to it, the innermost last.
    std::unordered_map<std::u16string, std::vector<std::u16string>> bindings_;
    std::unordered_map<std::u16string, Factory> factories_;
    // Elements with bindings of their own that stand open inside the root; the memory of types holds while there are none.
    std::size_t innerScopes_ = 0;
    std::size_t openElements_ = 0;
};

}  // namespace schema
