// Builds document objects from DOM elements.
#include <schema/Reader.h>

#include <schema/DocumentOwner.h>
#include <schema/FailedElement.h>
#include <schema/Limits.h>
#include <schema/Text.h>

#include <otx/Stack.h>

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/schema/SchemaSymbols.hpp>

#include <algorithm>

namespace schema {

namespace {

thread_local Reader* currentReader = nullptr;

bool same(const char16_t* text, std::u16string_view other) {
    return text != nullptr && std::u16string_view(text) == other;
}

constexpr std::u16string_view xmlnsSpace = u"http://www.w3.org/2000/xmlns/";
constexpr std::u16string_view instanceSpace = u"http://www.w3.org/2001/XMLSchema-instance";
constexpr std::u16string_view xmlSpace = u"http://www.w3.org/XML/1998/namespace";

const xercesc::DOMElement* elementFrom(const xercesc::DOMNode* node) {
    while (node != nullptr && node->getNodeType() != xercesc::DOMNode::ELEMENT_NODE) node = node->getNextSibling();
    return static_cast<const xercesc::DOMElement*>(node);
}

std::string narrowView(std::u16string_view text) {
    return narrow(std::u16string(text).c_str());
}

// One object's reading: the cursor over the child elements moves on from class to class of the chain.
class ObjectParser {
public:
    ObjectParser(Reader& reader, type& object, const DomElement& element, flags f)
        : reader_(reader), object_(object), element_(element), flags_(f), child_(elementFrom(element.getFirstChild())) {}

    void parse(const ClassTable& table) {
        if (table.inherited != nullptr) parse(*table.inherited);
        if (!table.elements.empty()) parseElements(table);
        if (!table.attributes.empty()) parseAttributes(table);
    }

private:
    void parseElements(const ClassTable& table) {
        while (child_ != nullptr && accept(table)) child_ = elementFrom(child_->getNextSibling());
        for (const Element& member : table.elements)
            if (member.operations->cardinality == Cardinality::one && !member.operations->present(member.holder(object_)))
                refuseWithout(member);
    }

    // What stands where the member was expected is more likely the mistake than the element around it.
    [[noreturn]] void refuseWithout(const Element& member) const {
        if (child_ != nullptr) FailedElement::note(*child_);
        throw xsd::cxx::tree::expected_element<char>(narrowView(elementNames()[member.name]),
                                                     narrowView(namespaceNames()[member.space]));
    }

    bool accept(const ClassTable& table) {
        const NameId name = reader_.name(child_->getLocalName());
        const NamespaceId space = reader_.space(child_->getNamespaceURI());
        if (name == 0) return false;
        for (std::size_t i = 0; i < table.elements.size(); ++i) {
            const Element& member = table.elements[i];
            TypeName memberType = member.memberType;
            Factory factory = member.factory;
            if (member.name != name || member.space != space) {
                if (member.substitution == 0) continue;
                const Substitute* const substitute = findSubstitute(member.substitution, name, space);
                if (substitute == nullptr) continue;
                memberType = substitute->elementType;
                factory = substitute->factory;
            }
            void* const holder = member.holder(object_);
            if (member.operations->present(holder)) continue;
            take(table, i, holder, reader_.create(*child_, factory, memberType, flags_, &object_), memberType);
            return true;
        }
        return false;
    }

    void take(const ClassTable& table, std::size_t index, void* holder, std::unique_ptr<type> made,
              TypeName memberType) {
        const Element& member = table.elements[index];
        if (!member.operations->take(holder, made)) {
            FailedElement::note(*child_);
            const auto found = reader_.typeName(*child_, memberType);
            throw xsd::cxx::tree::not_derived<char>(member.memberType.name, member.memberType.space, found.first,
                                                    found.second);
        }
        // The kinds of an ordered class count from 1; all its members are sequences.
        if (table.order != nullptr) {
            auto& order = *table.order(object_);
            const auto last = std::find_if(order.rbegin(), order.rend(),
                                           [index](const content_order& entry) { return entry.id == index + 1; });
            order.emplace_back(index + 1, last == order.rend() ? 0 : last->index + 1);
        }
    }

    void parseAttributes(const ClassTable& table) {
        const auto* const found = element_.getAttributes();
        const NamespaceId space = table.attributes.front().space;
        for (XMLSize_t i = 0, count = found->getLength(); i < count; ++i) {
            const auto* const attribute = static_cast<const xercesc::DOMAttr*>(found->item(i));
            const XMLCh* const uri = attribute->getNamespaceURI();
            if (space == 0 ? uri != nullptr : uri == nullptr || reader_.space(uri) != space) continue;
            const NameId name = reader_.name(attribute->getLocalName());
            if (name == 0) continue;
            for (const Attribute& member : table.attributes)
                if (member.name == name)
                    member.operations->parse(member.holder(object_), attribute->getValue(), element_, flags_, &object_);
        }
        for (const Attribute& member : table.attributes) {
            if (member.presence == Presence::optional || member.operations->present(member.holder(object_))) continue;
            if (member.presence == Presence::required)
                throw xsd::cxx::tree::expected_attribute<char>(narrowView(elementNames()[member.name]),
                                                               narrowView(namespaceNames()[space]));
            member.setDefault(member.holder(object_), &object_);
        }
    }

    Reader& reader_;
    type& object_;
    const DomElement& element_;
    flags flags_;
    const xercesc::DOMElement* child_;
};

}  // namespace

void parse(type& object, const ClassTable& table, const DomElement& element, flags f) {
    if (Reader* const reader = Reader::current()) {
        ObjectParser(*reader, object, element, f).parse(table);
    } else {
        Reader own;
        ObjectParser(own, object, element, f).parse(table);
    }
}

// Opens an element: enters its namespace bindings, and finds its xsi:type on the way.
class Reader::Scope {
public:
    Scope(Reader& reader, const DomElement& element) : reader_(reader) {
        const auto* const found = element.getAttributes();
        for (XMLSize_t i = 0, count = found->getLength(); i < count; ++i) {
            const auto* const attribute = static_cast<const xercesc::DOMAttr*>(found->item(i));
            const XMLCh* const space = attribute->getNamespaceURI();
            if (space == nullptr) continue;
            if (same(space, instanceSpace)) {
                if (same(attribute->getLocalName(), u"type")) typeAttribute = attribute->getValue();
            } else if (same(space, xmlnsSpace)) {
                const bool prefixed = attribute->getPrefix() != nullptr;
                bind(prefixed ? attribute->getLocalName() : u"", attribute->getValue());
            }
        }
        inner_ = !bound_.empty() && reader_.openElements_ > 0;
        if (inner_) ++reader_.innerScopes_;
        ++reader_.openElements_;
    }

    ~Scope() {
        --reader_.openElements_;
        if (inner_) --reader_.innerScopes_;
        for (const auto& prefix : bound_) reader_.bindings_[prefix].pop_back();
    }

    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

    const char16_t* typeAttribute = nullptr;

private:
    void bind(const char16_t* prefix, const char16_t* space) {
        bound_.emplace_back(prefix);
        reader_.bindings_[bound_.back()].emplace_back(space);
    }

    Reader& reader_;
    std::vector<std::u16string> bound_;
    bool inner_ = false;
};

Reader::Reader() : outer_(currentReader) {
    currentReader = this;
}

Reader::~Reader() {
    currentReader = outer_;
}

Reader* Reader::current() noexcept {
    return currentReader;
}

NameId Reader::name(const char16_t* pooled) {
    const auto known = names_.find(pooled);
    if (known != names_.end()) return known->second;
    static const auto* const numbers = [] {
        auto* const made = new std::unordered_map<std::u16string_view, NameId>;
        const auto all = elementNames();
        for (std::size_t i = 1; i < all.size(); ++i) made->emplace(all[i], static_cast<NameId>(i));
        return made;
    }();
    const auto found = pooled == nullptr ? numbers->end() : numbers->find(pooled);
    const NameId number = found == numbers->end() ? NameId{0} : found->second;
    names_.emplace(pooled, number);
    return number;
}

NamespaceId Reader::space(const char16_t* pooled) {
    for (const auto& [address, number] : spaces_)
        if (address == pooled) return number;
    NamespaceId number = 0;
    const auto all = namespaceNames();
    for (std::size_t i = 1; i < all.size(); ++i)
        if (same(pooled, all[i])) number = static_cast<NamespaceId>(i);
    // Unknown namespaces may be many; they are compared each time instead of being kept.
    if (number != 0) spaces_.emplace_back(pooled, number);
    return number;
}

std::unique_ptr<type> Reader::create(const DomElement& element, Factory factory, TypeName memberType, flags f,
                                     container* owner) {
    try {
        if (otx::stackIsLow()) throw NestedTooDeep(NestedTooDeep::Limit::stack);
        otxns::StackUse::note();
        const Scope scope(*this, element);
        if (const Factory made = chosen(scope.typeAttribute, factory)) return made(element, f, owner);
        throw xsd::cxx::tree::no_type_info<char>(memberType.name, memberType.space);
    } catch (const Exception&) {
        FailedElement::note(element);
        throw;
    }
}

Factory Reader::chosen(const char16_t* typeAttribute, Factory factory) {
    if (typeAttribute == nullptr || *typeAttribute == 0) return factory;
    const bool remembered = innerScopes_ == 0;
    std::u16string key(typeAttribute);
    if (remembered) {
        const auto known = factories_.find(key);
        if (known != factories_.end()) return known->second;
    }
    const auto [name, space] = resolve(key);
    const Factory found = findFactory(name, space);
    if (found == nullptr) throw xsd::cxx::tree::no_type_info<char>(name, space);
    if (remembered) factories_.emplace(std::move(key), found);
    return found;
}

std::pair<std::string, std::string> Reader::typeName(const DomElement& element, TypeName memberType) {
    const Scope scope(*this, element);
    if (scope.typeAttribute == nullptr || *scope.typeAttribute == 0) return {memberType.name, memberType.space};
    return resolve(scope.typeAttribute);
}

std::pair<std::string, std::string> Reader::resolve(std::u16string_view text) {
    const auto colon = text.find(u':');
    const std::u16string prefix(colon == std::u16string_view::npos ? std::u16string_view() : text.substr(0, colon));
    const auto local = colon == std::u16string_view::npos ? text : text.substr(colon + 1);
    if (prefix == u"xml") return {narrowView(local), narrowView(xmlSpace)};
    const auto bound = bindings_.find(prefix);
    if (bound != bindings_.end() && !bound->second.empty()) return {narrowView(local), narrowView(bound->second.back())};
    if (prefix.empty()) return {narrowView(local), {}};
    throw xsd::cxx::tree::no_prefix_mapping<char>(narrowView(prefix));
}

}  // namespace schema
