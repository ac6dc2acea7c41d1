// Reads a vehicle file.
#include "vehicle/ReadVehicle.h"

#include "vehicle/ReadParts.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

namespace velkotx::host {

namespace {

constexpr std::uint64_t largestFile = 16U << 20U;

// Who listens to an address listens to all that is sent to it.
void checkGroupAddresses(ObjectReader& in, const VehicleDescription& vehicle) {
    const auto list = in.find("groups");
    if (!list || !list->is(JsonNode::Kind::List))
        return;
    const auto places = list->items();
    expectUnique(*list, vehicle.groups, [](const auto& group) { return group.address; }, "address");
    for (std::size_t index = 0; index < vehicle.groups.size(); ++index)
        for (const ControlUnitDescription& unit : vehicle.controlUnits)
            if (unit.requestAddress == vehicle.groups[index].address)
                places[index].mistake("the control unit \"" + unit.name + "\" has the same address");
}

// A unit's and a group's name are both what a link is opened by.
void checkNames(ObjectReader& in, const VehicleDescription& vehicle) {
    const auto units = in.find("controlUnits");
    if (!units || !units->is(JsonNode::Kind::List))
        return;
    const auto places = units->items();
    std::set<std::string> groups;
    for (const FunctionalGroupDescription& group : vehicle.groups)
        groups.insert(group.name);
    for (std::size_t index = 0; index < vehicle.controlUnits.size(); ++index) {
        const ControlUnitDescription& unit = vehicle.controlUnits[index];
        if (groups.count(unit.name) != 0)
            places[index].mistake("a group has the same name");
        for (const std::string& group : unit.groups)
            if (groups.count(group) == 0)
                places[index].mistake("no group is named \"" + group + "\"");
    }
    expectUnique(*units, vehicle.controlUnits, [](const auto& unit) { return unit.name; }, "name");
    expectUnique(*units, vehicle.controlUnits, [](const auto& unit) { return unit.requestAddress; }, "requestAddress");
    expectUnique(*units, vehicle.controlUnits, [](const auto& unit) { return unit.responseAddress; },
                 "responseAddress");
}

void checkFlashSession(const JsonPlace& place, const FlashSessionDescription& session, const VehicleDescription& vehicle) {
    if (session.controlUnit.empty())
        return;
    const auto unit = std::find_if(vehicle.controlUnits.begin(), vehicle.controlUnits.end(),
                                   [&](const auto& each) { return each.name == session.controlUnit; });
    if (unit == vehicle.controlUnits.end()) {
        place.mistake("no control unit is named \"" + session.controlUnit + "\"");
        return;
    }
    if (!session.securityAccessLevel.empty() &&
        std::none_of(unit->securities.begin(), unit->securities.end(),
                     [&](const auto& level) { return level.name == session.securityAccessLevel; }))
        place.mistake("no security level of the control unit is named \"" + session.securityAccessLevel + "\"");
}

void checkFlash(ObjectReader& in, const VehicleDescription& vehicle) {
    const auto list = in.find("flashSessions");
    if (!list || !list->is(JsonNode::Kind::List))
        return;
    const auto places = list->items();
    for (std::size_t index = 0; index < vehicle.flashSessions.size(); ++index)
        checkFlashSession(places[index], vehicle.flashSessions[index], vehicle);
}

void checkDefaultInterface(ObjectReader& in, const VehicleDescription& vehicle) {
    const auto place = in.find("defaultComInterface");
    if (place && std::none_of(vehicle.comInterfaces.begin(), vehicle.comInterfaces.end(),
                              [&](const auto& each) { return each.name == vehicle.defaultComInterface; }))
        place->mistake("no interface is named \"" + vehicle.defaultComInterface + "\"");
}

std::size_t countOf(const ParameterDescription& parameter) {
    std::size_t count = 1 + parameter.texts.size();
    for (const ParameterDescription& field : parameter.fields)
        count += countOf(field);
    return count;
}

std::size_t countOf(const MessageDescription& message) {
    std::size_t count = 1;
    for (const ParameterDescription& parameter : message.parameters)
        count += countOf(parameter);
    return count;
}

std::size_t countOf(const ServiceDescription& service) {
    std::size_t count = 1 + countOf(service.request);
    for (const auto* responses : {&service.positive, &service.negative})
        for (const MessageDescription& response : *responses)
            count += countOf(response);
    return count;
}

std::size_t countOf(const ComParameterDescription& parameter) {
    std::size_t count = 1;
    for (const ComParameterDescription& part : parameter.parts)
        count += countOf(part);
    return count;
}

// Each control unit gets a copy of what is common.
bool isBearable(const ControlUnitDescription& common, std::size_t units) {
    constexpr std::size_t most = 200000;
    std::size_t count = 0;
    for (const ServiceDescription& service : common.services)
        count += countOf(service);
    for (const ComParameterDescription& parameter : common.comParameters)
        count += countOf(parameter);
    return units == 0 || count <= most / units;
}

void readControlUnits(ObjectReader& in, VehicleDescription& target) {
    ControlUnitDescription common;
    readUniqueList(in, "services", common.services, [](const auto& item) { return item.name; }, "name");
    readComParameters(in, common.comParameters);
    const auto units = in.require("controlUnits");
    if (!units)
        return;
    if (!isBearable(common, units->node().items.size())) {
        units->mistake("too many control units for so many common services");
        common = {};
    }
    for (const JsonPlace& unit : units->items())
        readControlUnit(unit, common, target.controlUnits.emplace_back());
    target.comParameters = std::move(common.comParameters);
    if (units->is(JsonNode::Kind::List) && target.controlUnits.empty())
        units->mistake("expected at least one control unit");
}

void readWhole(const JsonPlace& place, VehicleDescription& target) {
    ObjectReader in(place);
    in.name(target.name);
    readUniqueList(in, "groups", target.groups, [](const auto& item) { return item.name; }, "name");
    readControlUnits(in, target);
    readUniqueList(in, "flashSessions", target.flashSessions, [](const auto& item) { return item.id; }, "id");
    readUniqueList(in, "comInterfaces", target.comInterfaces, [](const auto& item) { return item.name; }, "name");
    in.optional("defaultComInterface", target.defaultComInterface);
    checkNames(in, target);
    checkGroupAddresses(in, target);
    checkFlash(in, target);
    checkDefaultInterface(in, target);
    in.finish();
}

VehicleFile unreadable(const std::string& why) {
    return {{}, {{0, "", why}}};
}

}  // namespace

VehicleFile readVehicleText(std::string_view text, const std::filesystem::path& folder) {
    VehicleFile result;
    ReadContext context;
    context.folder = folder;
    const JsonNode root = parseJson(text, context.mistakes);
    const bool isJson = std::none_of(context.mistakes.begin(), context.mistakes.end(),
                                     [](const Mistake& mistake) { return mistake.endsReading; });
    if (isJson)
        readWhole(JsonPlace(root, "", context), result.description);
    result.mistakes = std::move(context.mistakes);
    std::stable_sort(result.mistakes.begin(), result.mistakes.end(),
                     [](const Mistake& one, const Mistake& other) { return one.line < other.line; });
    return result;
}

VehicleFile readVehicle(const std::filesystem::path& file) {
    std::error_code error;
    if (std::filesystem::is_directory(file, error))
        return unreadable("Is a directory");
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        return unreadable(std::generic_category().message(errno != 0 ? errno : EIO));
    std::string text(static_cast<std::size_t>(largestFile) + 1, '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (stream.bad())
        return unreadable("can't be read");
    text.resize(static_cast<std::size_t>(stream.gcount()));
    if (text.size() > largestFile)
        return unreadable("a vehicle file has at most 16 MB; large data go to files beside it");
    return readVehicleText(text, file.parent_path());
}

std::string inWords(const Mistake& mistake, const std::string& fileName) {
    std::string words = fileName;
    if (mistake.line > 0)
        words += ':' + std::to_string(mistake.line);
    if (!mistake.place.empty())
        words += ": " + mistake.place;
    return words + ": " + mistake.text;
}

}  // namespace velkotx::host
