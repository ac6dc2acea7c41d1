// The operations of a String value.
#pragma once

#include <otx/Export.h>

#include <string>

class COtxValue;

namespace OTX {

// Behind COtxValue::String(); it is also the std::string itself, UTF-8. Immutable, so any thread may read it. Lengths and
// positions count characters (code points), from 0. Operands of another type than stated throw kind 5, positions outside
// the string kind 2.
class OTX_API IString : public virtual std::string {
public:
    // Integer.
    virtual COtxValue Length() const = 0;
    // Integer: the place of the first occurrence, -1 when there is none.
    virtual COtxValue IndexOf(const COtxValue& pattern) const = 0;
    // String: at most `count` characters from `index` on.
    virtual COtxValue SubString(const COtxValue& index, const COtxValue& count) const = 0;
    // String: the replacement written over the characters from `index` on; past the end it lengthens the string.
    virtual COtxValue Replace(const COtxValue& replacement, const COtxValue& index) const = 0;
    // List of Strings: the parts between the delimiters, empty ones included; the characters for an empty delimiter.
    virtual COtxValue Split(const COtxValue& delimiter) const = 0;
    // String: the full mapping of Unicode, which may change the length, the same under every locale.
    virtual COtxValue ToUpper() const = 0;
    virtual COtxValue ToLower() const = 0;
    // Boolean: whether the whole string matches the ECMAScript expression (docs/modules/string-util.md). A bad expression
    // throws kind 19, as does a match that takes too much work, memory or stack: none takes more than some seconds. It may
    // be interrupted (otx/Interruption.h).
    virtual COtxValue Match(const COtxValue& expression) const = 0;

protected:
    IString() = default;
    ~IString() = default;
};

}  // namespace OTX
