// The answers of the recording host that don't depend on what it is asked by whom.
#include "Answers.h"

#include <otx/value/COtxBool.h>
#include <otx/value/COtxByteField.h>
#include <otx/value/COtxFloat.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxQuantity.h>
#include <otx/value/COtxString.h>
#include <otx/value/COtxUnit.h>

#include <vector>

namespace documents {

std::string textOf(const COtxValue& value) {
    const std::string text = value.ToString().String();
    return text;
}

bool isMissing(const COtxValue& name) { return textOf(name) == "missing"; }

COtxValue nothing() { return COtxString("nothing"); }

COtxValue sampleOf(OTX::ValueType type) {
    switch (type) {
        case OTX::ValueType::Boolean: return COtxBool(true);
        case OTX::ValueType::Integer: return COtxInt(42);
        case OTX::ValueType::String: return COtxString("text");
        case OTX::ValueType::ByteField: return COtxByteField(std::vector<unsigned char>{0x0A, 0x1B});
        case OTX::ValueType::Float: return COtxFloat(2.5);
        case OTX::ValueType::Quantity: return COtxQuantity(12.5, COtxUnit("V"), 4);
        default: return COtxString("type " + std::to_string(static_cast<int>(type)));
    }
}

}  // namespace documents
