// For whom flash data is.
#pragma once

#include <otx/value/COtxInt.h>
#include <otx/value/COtxValue.h>
#include <otx/value/COtxValueBehaviour.h>

#include <string>

namespace Flash {

// Integer-backed: Int() answers the number, ToString() the literal; all else is as for an Integer.
class COtxAudienceBehaviour final : public COtxIntBehaviour {
public:
    explicit COtxAudienceBehaviour(int number);

    COtxValue ToString() override;
    const char* what() const override { return literal_.c_str(); }

private:
    const std::string literal_;
};

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

    explicit COtxAudience(int number);
};

}  // namespace Flash
