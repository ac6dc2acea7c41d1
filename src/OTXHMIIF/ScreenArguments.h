// What a screen is opened with.
#pragma once

#include <otx/value/COtxValue.h>

#include <map>
#include <memory>
#include <string>

class OtxVariable;

namespace OTX {

// By the names of the screen's parameters.
struct ScreenArguments {
    using Values = std::map<std::string, COtxValue>;
    using Variables = std::map<std::string, std::shared_ptr<OtxVariable>>;

    Values terms;
    Variables in;
    Variables inout;
    Variables out;
};

}  // namespace OTX
