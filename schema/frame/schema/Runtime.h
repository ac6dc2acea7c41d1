// The tree runtime under the names that the document classes use.
#pragma once

// Chooses UTF-8 for the tree's strings; stands before the others.
#include <xsd/cxx/xml/char-utf8.hxx>

#include <xsd/cxx/tree/containers.hxx>
#include <xsd/cxx/tree/date-time.hxx>
#include <xsd/cxx/tree/elements.hxx>
#include <xsd/cxx/tree/exceptions.hxx>
#include <xsd/cxx/tree/parsing.hxx>
#include <xsd/cxx/tree/types.hxx>

#include <memory>

namespace schema {

using type = xsd::cxx::tree::type;
using container = xsd::cxx::tree::container;
using flags = xsd::cxx::tree::flags;
using DomElement = xercesc::DOMElement;

template <typename T>
using one = xsd::cxx::tree::one<T>;
template <typename T>
using optional = xsd::cxx::tree::optional<T>;
template <typename T>
using sequence = xsd::cxx::tree::sequence<T>;
using content_order = xsd::cxx::tree::content_order;

using simple_type = xsd::cxx::tree::simple_type<char, type>;
using string = xsd::cxx::tree::string<char, simple_type>;
using normalized_string = xsd::cxx::tree::normalized_string<char, string>;
using date_time = xsd::cxx::tree::date_time<char, simple_type>;
using buffer = xsd::cxx::tree::buffer<char>;
using hex_binary = xsd::cxx::tree::hex_binary<char, simple_type>;

using Exception = xsd::cxx::tree::exception<char>;

}  // namespace schema
