// Writes and reads the objects of the compiled form.
#include <schema/Records.h>

#include <schema/Limits.h>
#include <schema/Registry.h>

#include <otx/Stack.h>

#include <xsd/cxx/tree/ace-cdr-stream-extraction.hxx>

namespace schema {

namespace {

// A class without virtual bases: the table of a class leads to those of its bases.
bool derives(const ClassTable* table, const ClassTable& base) {
    while (table != nullptr && table != &base) table = table->base;
    return table != nullptr;
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
    if (table.inherited != nullptr) insertFields(stream, constObject, *table.inherited);
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
    if (table.inherited != nullptr) extractFields(stream, object, *table.inherited, f);
    FieldListener* const listener = stream.listener();
    if (table.order != nullptr) {
        if (listener != nullptr) listener->member(u"order");
        auto& order = *table.order(object);
        for (std::uint32_t left = stream.readUnsignedLong("count"); left > 0; --left) {
            const std::uint32_t kind = stream.readUnsignedLong("kind");
            order.emplace_back(kind, stream.readUnsignedLong("position"));
        }
    }
    const auto extract = [&](const auto& member) {
        if (listener != nullptr) listener->member(elementNames()[member.name]);
        member.operations->extract(member.holder(object), stream, f, &object);
    };
    for (const Element& member : table.elements) extract(member);
    for (const Attribute& member : table.attributes) extract(member);
    if (table.order != nullptr) checkOrder(object, table);
}

void insertRecord(OutputStream& stream, const type& object, const MemberClass& own) {
    if (otx::stackIsLow()) throw NestedTooDeep(NestedTooDeep::Limit::stack);
    const std::type_info& identity = typeid(object);
    if (own.extract != nullptr) {
        // The same class may have several addresses, but has one table.
        const bool other = &identity != own.identity && stream.typeOf(identity).table != &own.table();
        stream.writeBoolean(other);
        if (!other) return insertFields(stream, object, own.table());
    }
    stream.writeType(identity).insert(stream, object);
}

std::unique_ptr<type> extractRecord(InputStream& stream, const MemberClass& own, flags f, container* owner) {
    const InputStream::Level level(stream);
    if (own.extract != nullptr && !stream.readBoolean("derived")) {
        const FieldListener::Object shown(stream.listener(), *own.identity);
        return own.extract(stream, f, owner);
    }
    const RegisteredType& registered = stream.readType();
    const FieldListener::Object shown(stream.listener(), registered);
    std::unique_ptr<type> object = registered.extract(stream, f, owner);
    if (!derives(registered.table, own.table())) throw xsd::cxx::tree::not_derived<char>();
    return object;
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
    const int year = stream.readLong("year");
    const unsigned short month = stream.readUnsignedShort("month");
    const unsigned short day = stream.readUnsignedShort("day");
    const unsigned short hours = stream.readUnsignedShort("hours");
    const unsigned short minutes = stream.readUnsignedShort("minutes");
    const double seconds = stream.readDouble("seconds");
    if (!stream.readBoolean("zone present")) return date_time(year, month, day, hours, minutes, seconds);
    const short zoneHours = stream.readShort("zone hours");
    const short zoneMinutes = stream.readShort("zone minutes");
    return date_time(year, month, day, hours, minutes, seconds, zoneHours, zoneMinutes);
}

}  // namespace schema
