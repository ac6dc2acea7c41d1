// The text as which a value is stored.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>

namespace velkotx::host {

// The value in the OTX form of JSON, of which OTX::FromJSON makes an equal one. Throws a COtxValue, kind 5, for a value that
// isn't carried by JSON or holds such a one, and of other kinds for what JSON refuses, such as a list that contains itself.
std::string storedForm(const COtxValue& value);

}  // namespace velkotx::host
