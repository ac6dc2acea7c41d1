// JSON text from values.
#pragma once

#include <otx/value/COtxValue.h>

#include <iosfwd>
#include <map>
#include <string>
#include <string_view>

namespace otx {

// The text of a value in the form that its flag asks for, or in the plain form whatever the flags. Throw kind 2 for values
// nested too deeply for the stack.
std::string jsonText(COtxValueBehaviour& value);
std::string plainJsonText(COtxValueBehaviour& value);
// Plain; for what can't be written so, the type's name in angle brackets.
void streamJson(std::ostream& out, const COtxValueBehaviour& value);

// {"<name of the type>": content}
COtxValue taggedJson(OTX::ValueType type, const COtxValue& content);

// A map as a Map with String keys that reads as that and nothing else, or as its pairs.
COtxValue jsonOfMap(const std::map<COtxValue, COtxValue>& entries, bool otxForm);

// The text with quotes and escapes.
std::string quoted(std::string_view text);

}  // namespace otx
