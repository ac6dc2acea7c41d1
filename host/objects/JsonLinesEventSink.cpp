// An event sink that writes every message as one line of JSON.
#include "objects/JsonLinesEventSink.h"

#include <otx/value/COtxValue.h>
#include <otx/value/IString.h>

#include <ostream>
#include <stdexcept>
#include <string>

namespace velkotx::host {

JsonLinesEventSink::JsonLinesEventSink(std::ostream& out) : out_(out) {}

void JsonLinesEventSink::sendRequest(const COtxValue& message) {
    const COtxValue json = message.ToJSON();
    const std::string& text = json.String();
    const std::string line = message.Type() == OTX::ValueType::Map ? text : "{\"message\":" + text + '}';
    const std::lock_guard guard(outLock_);
    out_ << line << '\n' << std::flush;
    if (!out_)
        throw std::runtime_error("A message to the host can't be written");
}

}  // namespace velkotx::host
