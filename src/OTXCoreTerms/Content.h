// Looking at what a list, a map or a byte field holds, which another flow may be changing.
#pragma once

#include <OTXContext/OtxContext.h>

#include <mutex>
#include <ostream>

namespace otxns {

// Gives what `look` gives, which must be independent of the container. It calls neither terms nor host objects.
template <class Look>
auto lookInto(OtxContext& context, Look look) {
    const std::lock_guard content(context.ContentLock());
    return look();
}

inline bool holdsContent(const COtxValue& value) {
    const OTX::ValueType type = value.Type();
    return type == OTX::ValueType::List || type == OTX::ValueType::Map || type == OTX::ValueType::ByteField;
}

// The same for a value of any type: only containers have a content that changes.
template <class Look>
auto lookAt(const COtxValue& value, OtxContext& context, Look look) {
    return holdsContent(value) ? lookInto(context, look) : look();
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
