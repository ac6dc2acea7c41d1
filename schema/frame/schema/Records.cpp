// Writes and reads the objects of the compiled form.
#include <schema/Records.h>

#include <schema/DocumentOwner.h>
#include <schema/Reader.h>
#include <schema/Registry.h>

#include <otx/Stack.h>

#include <xsd/cxx/tree/ace-cdr-stream-extraction.hxx>

namespace schema {

namespace {

void checkStack() {
    if (otx::stackIsLow()) throw NestedTooDeep();
    otxns::StackUse::note();
}

// A position that stands behind its sequence would be found only in a run.
void checkOrder(type& object, const ClassTable& table) {
    for (const content_order& entry : *table.order(object)) {
        const bool known = entry.id >= 1 && entry.id <= table.elements.size();
        if (!known) continue;
        const Element& member = table.elements[entry.id - 1];
        if (entry.index >= member.operations->count(member.holder(object)))
            throw xsd::cxx::tree::ace_cdr_stream_extraction();
    }
}

}  // namespace

void insertFields(OutputStream& stream, const type& constObject, const ClassTable& table) {
    if (table.base != nullptr) insertFields(stream, constObject, *table.base);
    // The tables reach members of objects that change and of those that don't by the same function.
    type& object = const_cast<type&>(constObject);
    if (table.order != nullptr) {
        const auto& order = *table.order(object);
        stream.writeCount(order.size());
        for (const content_order& entry : order) {
            stream.writeCount(entry.id);
            stream.writeCount(entry.index);
        }
    }
    for (const Element& member : table.elements) member.operations->insert(member.holder(object), stream);
    for (const Attribute& member : table.attributes) member.operations->insert(member.holder(object), stream);
}

void extractFields(InputStream& stream, type& object, const ClassTable& table, flags f) {
    if (table.base != nullptr) extractFields(stream, object, *table.base, f);
    if (table.order != nullptr) {
        auto& order = *table.order(object);
        for (std::uint32_t left = stream.readUnsignedLong(); left > 0; --left) {
            const std::uint32_t kind = stream.readUnsignedLong();
            order.emplace_back(kind, stream.readUnsignedLong());
        }
    }
    for (const Element& member : table.elements) member.operations->extract(member.holder(object), stream, f, &object);
    for (const Attribute& member : table.attributes)
        member.operations->extract(member.holder(object), stream, f, &object);
    if (table.order != nullptr) checkOrder(object, table);
}

void insertRecord(OutputStream& stream, const type& object, const std::type_info* own, const ClassTable* ownTable) {
    checkStack();
    const std::type_info& identity = typeid(object);
    if (own != nullptr) {
        const bool other = identity != *own;
        stream.writeBoolean(other);
        if (!other) return insertFields(stream, object, *ownTable);
    }
    const RegisteredType* const registered = findType(identity);
    if (registered == nullptr) throw xsd::cxx::tree::no_type_info<char>(identity.name(), "");
    stream.writePooled(registered->name.space);
    stream.writePooled(registered->name.name);
    registered->insert(stream, object);
}

std::unique_ptr<type> extractRecord(InputStream& stream, Extractor own, flags f, container* owner) {
    checkStack();
    if (own != nullptr && !stream.readBoolean()) return own(stream, f, owner);
    const std::string space = stream.readPooled();
    const std::string name = stream.readPooled();
    const RegisteredType* const registered = findType(name, space);
    if (registered == nullptr) throw xsd::cxx::tree::no_type_info<char>(name, space);
    return registered->extract(stream, f, owner);
}

void insertDateTime(OutputStream& stream, const date_time& value) {
    stream.writeLong(value.year());
    stream.writeUnsignedShort(value.month());
    stream.writeUnsignedShort(value.day());
    stream.writeUnsignedShort(value.hours());
    stream.writeUnsignedShort(value.minutes());
    stream.writeDouble(value.seconds());
    stream.writeBoolean(value.zone_present());
    if (!value.zone_present()) return;
    stream.writeShort(value.zone_hours());
    stream.writeShort(value.zone_minutes());
}

date_time extractDateTime(InputStream& stream) {
    const int year = stream.readLong();
    const unsigned short month = stream.readUnsignedShort();
    const unsigned short day = stream.readUnsignedShort();
    const unsigned short hours = stream.readUnsignedShort();
    const unsigned short minutes = stream.readUnsignedShort();
    const double seconds = stream.readDouble();
    if (!stream.readBoolean()) return date_time(year, month, day, hours, minutes, seconds);
    const short zoneHours = stream.readShort();
    const short zoneMinutes = stream.readShort();
    return date_time(year, month, day, hours, minutes, seconds, zoneHours, zoneMinutes);
}

}  // namespace schema
