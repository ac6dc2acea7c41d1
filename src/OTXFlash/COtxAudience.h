// For whom flash data is.
#pragma once

#include <OTXCoreTypes/SchemaEnumeration.h>
#include <otx/value/COtxValue.h>
#include <schema/Flash.h>

#include <memory>

namespace Flash {

using COtxAudienceBehaviour = otxns::SchemaEnumerationBehaviour<Audiences, OTX::ValueType::Audience>;

// The number is that of a literal.
class COtxAudience : public COtxValue {
public:
    enum Audience : int {
        Supplier = 0,  // "SUPPLIER"
        Development = 1,  // "DEVELOPMENT"
        Manufacturing = 2,  // "MANUFACTURING"
        AfterSales = 3,  // "AFTERSALES"
        AfterMarket = 4  // "AFTERMARKET"
    };

    explicit COtxAudience(int number) : COtxValue(std::make_shared<COtxAudienceBehaviour>(number)) {}
};

}  // namespace Flash
