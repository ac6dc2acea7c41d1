// Where the host callback's type information lives.
#include <velkotx/HostEventSink.h>

namespace velkotx {

HostEventSink::~HostEventSink() = default;

}  // namespace velkotx
