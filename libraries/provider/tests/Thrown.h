// What an operation throws, as a text.
#pragma once

#include <otx/value/COtxException.h>
#include <otx/value/COtxValue.h>

#include <string>

namespace {

// "kind: text" of an OTX exception, else what else happened.
template <class Operation>
std::string thrownBy(const Operation& operation) {
    try {
        operation();
        return "nothing thrown";
    } catch (const COtxValue& thrown) {
        const OTX::IException& exception = thrown.Exception();
        return std::to_string(static_cast<int>(exception.Kind())) + ": " + exception.Text();
    } catch (const std::exception& thrown) {
        return std::string("not an OTX exception: ") + thrown.what();
    }
}

}  // namespace
