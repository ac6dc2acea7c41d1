// The operations of OTX::IString over plain texts.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>

#include "Characters.h"

namespace otx {

COtxValue stringLength(const Characters& text);
COtxValue stringIndexOf(const Characters& text, const COtxValue& pattern);
COtxValue stringSubString(const Characters& text, const COtxValue& index, const COtxValue& count);
COtxValue stringReplace(const Characters& text, const COtxValue& replacement, const COtxValue& index);
COtxValue stringSplit(const Characters& text, const COtxValue& delimiter);
COtxValue stringToUpper(const std::string& text);
COtxValue stringToLower(const std::string& text);
COtxValue stringMatch(const Characters& text, const COtxValue& expression);

}  // namespace otx
