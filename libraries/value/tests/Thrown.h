// What an expression throws, for the tests.
#pragma once

#include <gtest/gtest.h>
#include <otx/value/Values.h>

#include <string>

namespace tests {

// The OTX exception that the call throws; the empty value when it throws none.
template <class Call>
COtxValue thrown(Call call) {
    try {
        call();
    } catch (const COtxValue& value) {
        return value;
    }
    return COtxValue();
}

// The kind of the exception that the call throws; -1 for none.
template <class Call>
int thrownKind(Call call) {
    const COtxValue value = thrown(call);
    if (value.Type() != OTX::ValueType::Exception) return -1;
    return static_cast<int>(value.Exception().Kind());
}

template <class Call>
std::string thrownText(Call call) {
    const COtxValue value = thrown(call);
    return value.Type() == OTX::ValueType::Exception ? value.Exception().Text() : "nothing thrown";
}

constexpr int outOfBounds = 2;
constexpr int arithmetic = 3;
constexpr int typeMismatch = 5;
constexpr int stringUtil = 19;
constexpr int unsupportedEncoding = 20;
constexpr int fileException = 36;

inline std::string json(const COtxValue& value) { return value.ToJSON().String(); }

inline std::string otxJson(const COtxValue& value) {
    const COtxValue copy = OTX::DeepCopy(value);
    copy.SetOTXJSON(true);
    return copy.ToJSON().String();
}

inline std::string streamed(const COtxValue& value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

// A list nested so many levels deep.
inline COtxValue nested(std::size_t levels, COtxValue value = COtxList()) {
    for (std::size_t level = 1; level < levels; ++level) {
        std::vector<COtxValue> outer;
        outer.push_back(std::move(value));
        value = COtxList(std::move(outer));
    }
    return value;
}

}  // namespace tests

// Evaluates its argument without using it.
#define OTX_THROWN_KIND(expression) tests::thrownKind([&] { static_cast<void>(expression); })
#define OTX_THROWN_TEXT(expression) tests::thrownText([&] { static_cast<void>(expression); })
