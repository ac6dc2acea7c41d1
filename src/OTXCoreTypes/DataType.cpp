// What a data type does that has no behaviour of its own: its variables start out empty.
#include <ClassNames.h>
#include <Trace.h>
#include <otx/value/COtxValue.h>
#include <schema/core.h>

namespace otxns {

template <>
COtxValue DataType_impl<DataType_base>::eval(OtxContext&) const {
    OTX_TRACE(3, "Declare non-specialised datatype: " << withoutNamespace(runtimeClass(*this)));
    return COtxValue();
}

}  // namespace otxns
