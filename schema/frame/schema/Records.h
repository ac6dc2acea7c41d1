// The compiled form of objects: fields by the classes' tables, records with a flag, tagged records.
#pragma once

#include <schema/Streams.h>
#include <schema/Table.h>

namespace schema {

using Extractor = std::unique_ptr<type> (*)(InputStream&, flags, container*);

// The fields of an object, base first. extract is called by the constructor of the most derived generated class.
void insertFields(OutputStream& stream, const type& object, const ClassTable& table);
void extractFields(InputStream& stream, type& object, const ClassTable& table, flags f);

// A member's object. `own` is the registered identity of the member's type, null for an abstract one, which is always
// tagged. Throw no_type_info for a class or name that isn't registered.
void insertRecord(OutputStream& stream, const type& object, const std::type_info* own, const ClassTable* ownTable);
std::unique_ptr<type> extractRecord(InputStream& stream, Extractor own, flags f, container* owner);

// Simple types.
void insertDateTime(OutputStream& stream, const date_time& value);
date_time extractDateTime(InputStream& stream);

}  // namespace schema
