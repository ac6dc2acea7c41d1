// The compiled form of objects: fields by the classes' tables, records with a flag, tagged records.
#pragma once

#include <schema/InputStream.h>
#include <schema/OutputStream.h>
#include <schema/Table.h>

namespace schema {

// A member's own type as the compiled form sees it. An abstract one has no extraction and is always tagged.
struct MemberClass {
    const std::type_info* identity;
    const ClassTable& (*table)();
    std::unique_ptr<type> (*extract)(InputStream&, flags, container*);
};

// The fields of an object, base first. extract is called by the constructor of the most derived generated class.
void insertFields(OutputStream& stream, const type& object, const ClassTable& table);
void extractFields(InputStream& stream, type& object, const ClassTable& table, flags f);

// A member's object. Throw no_type_info for a class or name that isn't registered; what comes in is of the member's class
// or one derived from it, else not_derived is thrown.
void insertRecord(OutputStream& stream, const type& object, const MemberClass& own);
std::unique_ptr<type> extractRecord(InputStream& stream, const MemberClass& own, flags f, container* owner);

// Simple types.
void insertDateTime(OutputStream& stream, const date_time& value);
date_time extractDateTime(InputStream& stream);

}  // namespace schema
