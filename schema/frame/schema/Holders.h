// The operations of the member holders, one instance for each type and cardinality.
#pragma once

#include <schema/Table.h>
#include <schema/Text.h>

namespace schema {

// A factory of the type's own class.
template <typename T>
std::unique_ptr<type> make(const DomElement& element, flags f, container* owner) {
    return std::unique_ptr<type>(new T(element, f, owner));
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

}  // namespace detail

template <typename T>
inline constexpr ElementHolder oneElement{Cardinality::one, detail::present<one<T>>, detail::set<one<T>, T>};
template <typename T>
inline constexpr ElementHolder optionalElement{Cardinality::optional, detail::present<optional<T>>,
                                               detail::set<optional<T>, T>};
template <typename T>
inline constexpr ElementHolder sequenceElement{Cardinality::sequence, [](const void*) { return false; },
                                               detail::append<T>};

template <typename T>
inline constexpr AttributeHolder oneAttribute{detail::present<one<T>>, detail::parse<one<T>, T>};
template <typename T>
inline constexpr AttributeHolder optionalAttribute{detail::present<optional<T>>, detail::parse<optional<T>, T>};

}  // namespace schema
