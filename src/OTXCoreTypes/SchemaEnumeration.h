// Values of enumerations whose literals stand in the schema.
#pragma once

#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>
#include <otx/value/COtxValueBehaviour.h>

#include <string>

namespace otxns {

// Integer-backed: Int() answers the number, ToString() the literal; all else is as for an Integer. The number is that of a
// literal.
template <class Enumeration, OTX::ValueType type>
class SchemaEnumerationBehaviour final : public COtxIntBehaviour {
public:
    explicit SchemaEnumerationBehaviour(int number)
        : COtxIntBehaviour(number, COtxInt::Decimal, type),
          literal_(Enumeration::literals()[static_cast<std::size_t>(number)]) {}

    COtxValue ToString() override { return COtxString(literal_); }
    const char* what() const override { return literal_.c_str(); }

private:
    const std::string literal_;
};

}  // namespace otxns
