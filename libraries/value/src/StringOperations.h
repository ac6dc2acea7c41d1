// The operations of OTX::IString over plain texts.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>

namespace otx {

COtxValue stringLength(const std::string& text);
COtxValue stringIndexOf(const std::string& text, const COtxValue& pattern);
COtxValue stringSubString(const std::string& text, const COtxValue& index, const COtxValue& count);
COtxValue stringReplace(const std::string& text, const COtxValue& replacement, const COtxValue& index);
COtxValue stringSplit(const std::string& text, const COtxValue& delimiter);
COtxValue stringToUpper(const std::string& text);
COtxValue stringToLower(const std::string& text);
COtxValue stringMatch(const std::string& text, const COtxValue& expression);

}  // namespace otx
