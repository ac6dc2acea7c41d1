// An interface that channels can be opened on.
#pragma once

#include <otx/Export.h>

namespace ComInterface {

// The behaviour of a host's ComInterface value is one of these too, or a channel on it reaches the host without it. What it
// offers is between the host's own objects.
class OTX_API IPduComInterface {
public:
    virtual ~IPduComInterface();
};

}  // namespace ComInterface
