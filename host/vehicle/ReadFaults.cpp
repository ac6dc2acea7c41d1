// Reads the faults of a control unit.
#include "vehicle/ReadParts.h"

namespace velkotx::host {

namespace {

PendingFault readPending(const JsonPlace& place) {
    PendingFault fault{1, std::chrono::milliseconds(100)};
    ObjectReader in(place);
    in.required("times", fault.times);
    in.optional("interval", fault.interval);
    in.finish();
    if (fault.times == 0 || fault.times > 10000)
        place.mistake("expected 1 to 10000 times");
    return fault;
}

NegativeFault readNegative(const JsonPlace& place) {
    NegativeFault fault{0x10};
    readJson(place, fault.code);
    if (fault.code == 0)
        place.mistake("0 is no negative response code");
    return fault;
}

template <typename Effect>
Effect readTrue(const JsonPlace& place) {
    bool value = true;
    if (readJson(place, value) && !value)
        place.mistake("expected true, or no such key");
    return {};
}

ShortAnswerFault readShort(const JsonPlace& place) {
    ShortAnswerFault fault{1};
    readJson(place, fault.length);
    if (fault.length == 0)
        place.mistake("expected at least one byte; no answer at all is \"silence\"");
    return fault;
}

WrongAnswerFault readWrong(const JsonPlace& place) {
    WrongAnswerFault fault;
    if (readJson(place, fault.answer) && fault.answer.empty())
        place.mistake("expected at least one byte; no answer at all is \"silence\"");
    return fault;
}

DelayFault readDelay(const JsonPlace& place) {
    DelayFault fault{};
    readJson(place, fault.time);
    return fault;
}

}  // namespace

bool readJson(const JsonPlace& place, FaultDescription& target) {
    ObjectReader in(place);
    in.optional("request", target.request);
    in.optional("from", target.from);
    in.optional("count", target.count);
    if (target.from == 0)
        place.mistake("\"from\" counts from 1");
    int effects = 0;
    const auto effect = [&](const char* key, auto read) {
        if (const auto member = in.find(key)) {
            target.effect = read(*member);
            ++effects;
        }
    };
    effect("delay", readDelay);
    effect("silence", readTrue<SilenceFault>);
    effect("negative", readNegative);
    effect("pending", readPending);
    effect("reset", readTrue<ResetFault>);
    effect("answer", readWrong);
    effect("length", readShort);
    if (effects != 1 && place.is(JsonNode::Kind::Object))
        place.mistake("expected exactly one of the keys \"delay\", \"silence\", \"negative\", \"pending\", \"reset\", "
                      "\"answer\", \"length\"");
    in.finish();
    return true;
}

}  // namespace velkotx::host
