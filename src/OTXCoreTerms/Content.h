// Looking at what a list, a map or a byte field holds, which another flow may be changing.
#pragma once

#include <OTXContext/OtxContext.h>
#include <otx/value/Functions.h>

#include <mutex>
#include <ostream>

namespace otxns {

// Gives what `look` gives, which must be independent of the container. It calls neither terms nor host objects.
template <class Look>
auto lookInto(OtxContext& context, Look look) {
    const std::lock_guard content(context.ContentLock());
    return look();
}

// An event shows the bytes that it tells of.
inline bool holdsContent(const COtxValue& value) {
    const OTX::ValueType type = value.Type();
    return type == OTX::ValueType::List || type == OTX::ValueType::Map || type == OTX::ValueType::ByteField ||
           type == OTX::ValueType::Event;
}

// The same for a value of any type: only containers have a content that changes.
template <class Look>
auto lookAt(const COtxValue& value, OtxContext& context, Look look) {
    return holdsContent(value) ? lookInto(context, look) : look();
}

inline COtxValue converted(const COtxValue& value, OtxContext& context, COtxValue (COtxValue::*conversion)() const) {
    return lookAt(value, context, [&] { return (value.*conversion)(); });
}

inline std::string textOf(const COtxValue& value, OtxContext& context) {
    return converted(value, context, &COtxValue::ToString).String();
}

// What others may look at while another flow changes the container.
inline COtxValue settled(COtxValue live, OtxContext& context) {
    if (!holdsContent(live)) return live;
    return lookInto(context, [&] { return OTX::DeepCopy(live); });
}

// A value in a line of the trace, with its content.
class Shown {
public:
    Shown(const COtxValue& value, OtxContext& context) : value_(value), context_(context) {}

    friend std::ostream& operator<<(std::ostream& out, const Shown& shown) {
        lookAt(shown.value_, shown.context_, [&] { out << shown.value_; });
        return out;
    }

private:
    const COtxValue& value_;
    OtxContext& context_;
};

}  // namespace otxns
