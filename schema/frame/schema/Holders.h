// The operations of the member holders, one instance for each type and cardinality.
#pragma once

#include <schema/Enumeration.h>
#include <schema/Records.h>
#include <schema/Table.h>
#include <schema/Text.h>

#include <xsd/cxx/tree/ace-cdr-stream-extraction.hxx>

#include <concepts>
#include <type_traits>

namespace schema {

// A factory of the type's own class.
template <typename T>
std::unique_ptr<type> make(const DomElement& element, flags f, container* owner) {
    return std::unique_ptr<type>(new T(element, f, owner));
}

// Whether T is a generated class with members, as against a simple type.
template <typename T>
concept Structured = requires { T::table(); };

// The compiled form of an object whose class is known.
template <typename T>
void insertValue(OutputStream& stream, const T& value) {
    if constexpr (std::is_same_v<T, bool>)
        stream.writeBoolean(value);
    else if constexpr (std::is_same_v<T, long long>)
        stream.writeLongLong(value);
    else if constexpr (std::is_same_v<T, double>)
        stream.writeDouble(value);
    else if constexpr (std::is_same_v<T, hex_binary>)
        stream.writeOctets(value.data(), value.size());
    else if constexpr (std::is_same_v<T, date_time>)
        insertDateTime(stream, value);
    else if constexpr (std::derived_from<T, Enumeration>)
        stream.writeUnsignedLong(static_cast<std::uint32_t>(value.number()));
    else if constexpr (Structured<T>)
        insertFields(stream, value, T::table());
    else
        stream.writeString(value);
}

template <typename T>
std::unique_ptr<T> extractObject(InputStream& stream, flags f, container* owner) {
    if constexpr (std::is_same_v<T, hex_binary>) {
        const std::string_view bytes = stream.readOctets();
        return std::make_unique<T>(hex_binary(bytes.data(), bytes.size()), f, owner);
    } else if constexpr (std::is_same_v<T, date_time>) {
        return std::make_unique<T>(extractDateTime(stream), f, owner);
    } else if constexpr (std::derived_from<T, Enumeration>) {
        const std::uint32_t number = stream.readUnsignedLong();
        const auto literals = T::literals();
        if (number >= literals.size()) throw xsd::cxx::tree::ace_cdr_stream_extraction();
        return std::make_unique<T>(std::string(literals[number]), nullptr, f, owner);
    } else if constexpr (Structured<T>) {
        return std::make_unique<T>(stream, f, owner);
    } else {
        return std::make_unique<T>(std::string(stream.readString()), nullptr, f, owner);
    }
}

template <typename T>
void insert(OutputStream& stream, const type& object) {
    insertValue(stream, static_cast<const T&>(object));
}

template <typename T>
std::unique_ptr<type> extract(InputStream& stream, flags f, container* owner) {
    return extractObject<T>(stream, f, owner);
}

namespace detail {

template <typename T>
std::unique_ptr<T> downcast(std::unique_ptr<type>& object) {
    T* const cast = dynamic_cast<T*>(object.get());
    if (cast != nullptr) object.release();
    return std::unique_ptr<T>(cast);
}

template <typename Holder>
bool present(const void* holder) {
    return static_cast<const Holder*>(holder)->present();
}

template <typename Holder, typename T>
bool set(void* holder, std::unique_ptr<type>& object) {
    auto cast = downcast<T>(object);
    if (cast == nullptr) return false;
    static_cast<Holder*>(holder)->set(std::move(cast));
    return true;
}

template <typename T>
bool append(void* holder, std::unique_ptr<type>& object) {
    auto cast = downcast<T>(object);
    if (cast == nullptr) return false;
    static_cast<sequence<T>*>(holder)->push_back(std::move(cast));
    return true;
}

template <typename Holder, typename T>
void parse(void* holder, const char16_t* text, const DomElement& element, flags f, container* owner) {
    if constexpr (xsd::cxx::tree::fundamental_p<T>::r)
        static_cast<Holder*>(holder)->set(readNumber<T>(text));
    else
        static_cast<Holder*>(holder)->set(readObject<T>(text, element, f, owner));
}

template <typename T>
inline constexpr decltype(MemberClass::extract) extraction = extract<T>;
template <typename T>
    requires std::is_abstract_v<T>
inline constexpr decltype(MemberClass::extract) extraction<T> = nullptr;

template <typename T>
inline const MemberClass memberClass{&typeid(T), &T::table, extraction<T>};

// A member's object: simple types as their value, classes as records.
template <typename T>
void insertMember(OutputStream& stream, const T& object) {
    if constexpr (Structured<T>)
        insertRecord(stream, object, memberClass<T>);
    else
        insertValue(stream, object);
}

template <typename T>
std::unique_ptr<T> extractMember(InputStream& stream, flags f, container* owner) {
    if constexpr (Structured<T>)
        return std::unique_ptr<T>(static_cast<T*>(extractRecord(stream, memberClass<T>, f, owner).release()));
    else
        return extractObject<T>(stream, f, owner);
}

template <typename Holder, typename T>
void insertOne(const void* holder, OutputStream& stream) {
    insertMember(stream, static_cast<const Holder*>(holder)->get());
}

template <typename Holder, typename T>
void extractOne(void* holder, InputStream& stream, flags f, container* owner) {
    static_cast<Holder*>(holder)->set(extractMember<T>(stream, f, owner));
}

template <typename T>
void insertOptional(const void* holder, OutputStream& stream) {
    const auto& member = *static_cast<const optional<T>*>(holder);
    stream.writeBoolean(member.present());
    if (member.present()) insertMember(stream, member.get());
}

template <typename T>
void extractOptional(void* holder, InputStream& stream, flags f, container* owner) {
    if (stream.readBoolean("present")) extractOne<optional<T>, T>(holder, stream, f, owner);
}

template <typename T>
void insertSequence(const void* holder, OutputStream& stream) {
    const auto& members = *static_cast<const sequence<T>*>(holder);
    stream.writeCount(members.size());
    for (const T& member : members) insertMember(stream, member);
}

template <typename T>
void extractSequence(void* holder, InputStream& stream, flags f, container* owner) {
    for (std::uint32_t left = stream.readUnsignedLong("count"); left > 0; --left)
        static_cast<sequence<T>*>(holder)->push_back(extractMember<T>(stream, f, owner));
}

template <typename T>
T extractNumber(InputStream& stream) {
    if constexpr (std::is_same_v<T, bool>)
        return stream.readBoolean();
    else if constexpr (std::is_same_v<T, double>)
        return stream.readDouble();
    else
        return stream.readLongLong();
}

template <typename Holder, typename T>
void extractAttribute(void* holder, InputStream& stream, flags f, container* owner) {
    if constexpr (xsd::cxx::tree::fundamental_p<T>::r)
        static_cast<Holder*>(holder)->set(extractNumber<T>(stream));
    else
        static_cast<Holder*>(holder)->set(extractObject<T>(stream, f, owner));
}

template <typename T>
void insertAttribute(const void* holder, OutputStream& stream) {
    insertValue(stream, static_cast<const one<T>*>(holder)->get());
}

template <typename T>
void insertOptionalAttribute(const void* holder, OutputStream& stream) {
    const auto& attribute = *static_cast<const optional<T>*>(holder);
    stream.writeBoolean(attribute.present());
    if (attribute.present()) insertValue(stream, attribute.get());
}

template <typename T>
void extractOptionalAttribute(void* holder, InputStream& stream, flags f, container* owner) {
    if (stream.readBoolean("present")) extractAttribute<optional<T>, T>(holder, stream, f, owner);
}

template <typename Holder>
std::size_t oneOrNone(const void* holder) {
    return present<Holder>(holder) ? 1 : 0;
}

}  // namespace detail

template <typename T>
inline constexpr ElementHolder oneElement{
    Cardinality::one,         detail::present<one<T>>,         detail::set<one<T>, T>,
    detail::oneOrNone<one<T>>, detail::insertOne<one<T>, T>, detail::extractOne<one<T>, T>};
template <typename T>
inline constexpr ElementHolder optionalElement{
    Cardinality::optional,          detail::present<optional<T>>, detail::set<optional<T>, T>,
    detail::oneOrNone<optional<T>>, detail::insertOptional<T>,    detail::extractOptional<T>};
template <typename T>
inline constexpr ElementHolder sequenceElement{
    Cardinality::sequence,
    [](const void*) { return false; },
    detail::append<T>,
    [](const void* holder) { return static_cast<const sequence<T>*>(holder)->size(); },
    detail::insertSequence<T>,
    detail::extractSequence<T>};

template <typename T>
inline constexpr AttributeHolder oneAttribute{detail::present<one<T>>, detail::parse<one<T>, T>,
                                              detail::insertAttribute<T>, detail::extractAttribute<one<T>, T>};
template <typename T>
inline constexpr AttributeHolder optionalAttribute{detail::present<optional<T>>, detail::parse<optional<T>, T>,
                                                   detail::insertOptionalAttribute<T>,
                                                   detail::extractOptionalAttribute<T>};

}  // namespace schema
