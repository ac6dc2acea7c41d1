// The text as which a value is stored.
#include "persistence/StoredForm.h"

#include <otx/value/COtxException.h>
#include <otx/value/COtxList.h>
#include <otx/value/IString.h>
#include <otx/value/Json.h>

#include <vector>

namespace velkotx::host {

std::string storedForm(const COtxValue& value) {
    // The flag of the form is set in a list around the value, since the value itself belongs to the sequence.
    const COtxList wrapped(std::vector<COtxValue>{value});
    wrapped.SetOTXJSON(true);
    const COtxValue json = wrapped.ToJSON();
    const std::string& text = json.String();
    // Handles and texts that are no UTF-8 have a JSON form too, which reads as something else.
    if (OTX::FromJSON(text) != wrapped)
        throw COtxException(OTX::Exceptions_e::TypeMismatchException,
                            "A value of type " + value.stringType() + " that JSON doesn't carry can't be stored");
    return text.substr(1, text.size() - 2);
}

}  // namespace velkotx::host
