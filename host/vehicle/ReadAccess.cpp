// Reads sessions, security levels, and what they give access to.
#include "vehicle/ReadParts.h"

#include "vehicle/SeedKey.h"
#include "vehicle/ServiceTable.h"

#include <algorithm>

namespace velkotx::host {

namespace {

bool readJson(const JsonPlace& place, SessionDescription& target) {
    ObjectReader in(place);
    in.name(target.name);
    in.required("id", target.id);
    in.optional("p2", target.p2);
    in.optional("p2Star", target.p2Star);
    in.optional("s3", target.s3);
    in.find("from");  // read when all sessions are known
    if (target.id == 0 || target.id > 0x7E)
        in.place().mistake("the id of a session lies between 1 and 0x7E");
    if (target.p2.count() > 65535 * 1000)
        in.place().mistake("p2 is at most 65535 milliseconds");
    if (target.p2Star.count() > 655350 * 1000)
        in.place().mistake("p2Star is at most 655350 milliseconds");
    // They are announced in such steps (ISO 14229-1), and what is announced has to be what holds.
    if (target.p2 % std::chrono::milliseconds(1) != Clock::Duration::zero())
        in.place().mistake("p2 is told in whole milliseconds");
    if (target.p2Star % std::chrono::milliseconds(10) != Clock::Duration::zero())
        in.place().mistake("p2Star is told in steps of 10 milliseconds");
    in.finish();
    return true;
}

void checkKey(const JsonPlace& place, const SecurityDescription& security) {
    if (!findSeedKey(security.algorithm)) {
        place.mistake("unknown algorithm \"" + security.algorithm + "\": expected one of " + seedKeyNames());
        return;
    }
    if (security.constant.empty() && seedKeyNeedsConstant(security.algorithm))
        place.mistake("the algorithm needs a \"constant\"");
}

bool readJson(const JsonPlace& place, SecurityDescription& target) {
    ObjectReader in(place);
    in.name(target.name);
    in.required("level", target.level);
    in.required("algorithm", target.algorithm);
    in.optional("constant", target.constant);
    in.optional("seed", target.seed);
    in.optional("seedLength", target.seedLength);
    in.optional("attempts", target.attempts);
    in.optional("delay", target.delay);
    in.optional("delayAfterReset", target.delayAfterReset);
    if (const auto sessions = in.find("sessions"))
        readSessionNames(*sessions, target.sessions);
    if (target.level % 2 == 0 || target.level > 0x7D)
        place.mistake("the level is that of requestSeed: odd, from 1 to 0x7D");
    if (target.seedLength == 0 || target.seedLength > 255)
        place.mistake("a seed has 1 to 255 bytes");
    if (!target.seed.empty()) {
        target.seedLength = target.seed.size();
        if (std::all_of(target.seed.begin(), target.seed.end(), [](std::uint8_t byte) { return byte == 0; }))
            place.mistake("a seed of zeros tells that the level is unlocked already");
    }
    if (target.attempts == 0)
        place.mistake("expected at least one attempt");
    checkKey(place, target);
    in.finish();
    return true;
}

std::vector<SessionDescription> usualSessions() {
    SessionDescription standard;
    standard.name = "default";
    return {standard};
}

void readOrigins(const JsonPlace& list, std::vector<SessionDescription>& target) {
    const auto places = list.items();
    for (std::size_t index = 0; index < target.size(); ++index) {
        if (!places[index].is(JsonNode::Kind::Object))
            continue;
        ObjectReader in(places[index]);
        if (const auto from = in.find("from"))
            readSessionNames(*from, target[index].from);
    }
}

}  // namespace

void readSessionNames(const JsonPlace& place, std::vector<std::uint8_t>& target) {
    const auto& known = place.context().sessions;
    for (const JsonPlace& item : place.items()) {
        std::string name;
        if (!readJson(item, name))
            continue;
        if (const auto found = known.find(name); found != known.end())
            target.push_back(found->second);
        else
            item.mistake("no session is named \"" + name + "\"");
    }
    if (place.is(JsonNode::Kind::List) && place.node().items.empty())
        place.mistake("expected at least one session");
}

void readSessions(ObjectReader& in, std::vector<SessionDescription>& target) {
    auto& known = in.place().context().sessions;
    known.clear();
    const auto list = in.find("sessions");
    if (list && list->expect(JsonNode::Kind::List, "a list")) {
        for (const JsonPlace& item : list->items())
            readJson(item, target.emplace_back());
        expectUnique(*list, target, [](const auto& session) { return session.id; }, "id");
        expectUnique(*list, target, [](const auto& session) { return session.name; }, "name");
    }
    for (const SessionDescription& session : target)
        known.emplace(session.name, session.id);
    if (list && list->is(JsonNode::Kind::List)) {
        readOrigins(*list, target);
        if (std::none_of(target.begin(), target.end(), [](const auto& session) { return session.id == 1; }))
            list->mistake("the default session, id 1, is missing");
    }
    if (!list) {
        target = usualSessions();
        known.emplace(target.front().name, target.front().id);
    }
}

void readSecurities(ObjectReader& in, std::vector<SecurityDescription>& target) {
    auto& known = in.place().context().securities;
    known.clear();
    const auto list = in.find("securities");
    if (!list)
        return;
    for (const JsonPlace& item : list->items())
        readJson(item, target.emplace_back());
    if (!list->is(JsonNode::Kind::List))
        return;
    expectUnique(*list, target, [](const auto& security) { return security.level; }, "level");
    expectUnique(*list, target, [](const auto& security) { return security.name; }, "name");
    for (const SecurityDescription& security : target)
        known.emplace(security.name, security.level);
}

bool readJson(const JsonPlace& place, AccessCondition& target) {
    ObjectReader in(place);
    readCondition(in, target);
    in.finish();
    return true;
}

void readCondition(ObjectReader& in, AccessCondition& target) {
    if (const auto sessions = in.find("sessions"))
        readSessionNames(*sessions, target.sessions);
    const auto security = in.find("security");
    std::string name;
    if (!security || !readJson(*security, name))
        return;
    const auto& known = in.place().context().securities;
    if (const auto found = known.find(name); found != known.end())
        target.security = found->second;
    else
        security->mistake("no security level is named \"" + name + "\"");
}

bool readJson(const JsonPlace& place, ServiceAccess& target) {
    ObjectReader in(place);
    const auto service = in.require("service");
    if (service && readJson(*service, target.service) && findKnownService(target.service) == nullptr)
        service->mistake("the simulation has no such service");
    in.optional("subfunction", target.subfunction);
    in.optional("supported", target.supported);
    readCondition(in, target.condition);
    in.finish();
    return true;
}

}  // namespace velkotx::host
