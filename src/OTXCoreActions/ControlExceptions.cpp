// Where the control exceptions' type information lives.
#include <OTXCoreActions/ControlExceptions.h>

namespace velkotx {

ReturnException::~ReturnException() = default;
CancelException::~CancelException() = default;

}  // namespace velkotx
