// A simulated vehicle for tests.
#include "VehicleBench.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <sstream>

namespace velkotx::host::test {

namespace {

constexpr const char* text = R"json({
  "name": "Bench",
  "groups": [{ "name": "All", "address": 2015 }],
  "controlUnits": [
    {
      "name": "One", "requestAddress": 1, "responseAddress": 2, "groups": ["All"],
      "resetTime": 300,
      "maxResponseLength": 64,
      "sessions": [
        { "name": "default", "id": 1 },
        { "name": "programming", "id": 2, "from": ["extended", "programming"], "s3": 3000 },
        { "name": "extended", "id": 3, "p2": 25, "p2Star": 2000 }
      ],
      "securities": [
        { "name": "flash", "level": 1, "algorithm": "xor", "constant": "0F F0", "seed": "11 22", "attempts": 2, "delay": 1000, "sessions": ["programming", "extended"] },
        { "name": "other", "level": 3, "algorithm": "complement", "seedLength": 3, "attempts": 1, "delay": 500, "delayAfterReset": true },
        { "name": "late", "level": 5, "algorithm": "add", "constant": "01", "seed": "00 FF", "sessions": ["programming"] }
      ],
      "access": [
        { "service": "0x11", "subfunction": 3, "sessions": ["extended"] },
        { "service": "0x11", "subfunction": 2, "supported": false },
        { "service": "0x14", "sessions": ["extended"] },
        { "service": "0x19", "subfunction": 10, "security": "flash" },
        { "service": "0x28", "security": "flash" }
      ],
      "dataIdentifiers": [
        { "id": "0xF190", "data": { "ascii": "VIN", "length": 4 } },
        { "id": 1, "data": "01 02", "write": { "sessions": ["extended"], "security": "flash" }, "control": { "sessions": ["extended"] } },
        { "id": 2, "data": { "counter": 254, "length": 1 } },
        { "id": 3, "data": { "curve": [[0, 0], [100, 10], [200, -10]], "length": 2, "signed": true, "factor": 0.5 } },
        { "id": 4, "data": "04", "read": { "security": "flash" } },
        { "id": 5, "data": "05", "read": { "sessions": ["extended"] } },
        { "id": 6, "data": "06", "read": false, "write": true },
        { "id": 7, "data": { "ascii": "", "length": 60 } },
        { "id": 8, "data": ["AA", { "curve": 300, "length": 1 }] }
      ],
      "routines": [
        { "id": "0xFF00", "effect": "eraseMemory", "memory": "flash", "processing": 130, "sessions": ["programming"], "security": "flash", "started": "00", "optionLength": 0, "canStop": false },
        { "id": "0x0202", "effect": "checkCrc32", "optionLength": 4 },
        { "id": "0x0301", "duration": 100, "started": "10", "running": "11", "stopped": "12", "results": "13" },
        { "id": "0x0302", "security": "flash" },
        { "id": "0x0303", "sessions": ["programming"], "hasResults": false }
      ],
      "troubleCodes": [
        {
          "code": "0x010203", "status": "0x2F",
          "snapshots": [{ "record": 1, "data": [{ "dataIdentifier": 1, "bytes": "AA BB" }] }, { "record": 2, "data": [] }],
          "extendedData": [{ "record": 16, "bytes": "05" }]
        },
        { "code": "0x040506", "status": "0x08" },
        { "code": "0x070809", "status": "0x80", "statusAfterClear": "0x81" }
      ],
      "statusAvailability": "0x7F",
      "memories": [
        { "name": "flash", "start": 4096, "size": 32, "fill": 0, "download": true, "upload": true, "needsErase": true, "readable": false, "formats": "00 11", "sessions": ["programming"], "security": "flash" },
        { "name": "ram", "start": 8192, "size": 256, "fill": "0x55", "content": "01 02 03", "writable": true },
        { "name": "secret", "start": 16384, "size": 16, "security": "flash", "writable": true }
      ],
      "transfer": { "maxBlockLength": 10 }
    },
    {
      "name": "Two", "requestAddress": 3, "responseAddress": 4, "groups": ["All"],
      "dataIdentifiers": [{ "id": "0xF190", "data": { "ascii": "TWO" } }]
    }
  ]
})json";

}  // namespace

Pdu bytes(const std::string& hexadecimal) {
    Pdu pdu;
    std::istringstream words(hexadecimal);
    std::string word;
    while (words >> word) {
        std::uint8_t byte = 0;
        std::from_chars(word.data(), word.data() + word.size(), byte, 16);
        pdu.push_back(byte);
    }
    return pdu;
}

std::string digits(const Pdu& pdu) {
    constexpr std::array hexadecimal{'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'};
    std::string result;
    for (const std::uint8_t byte : pdu) {
        if (!result.empty())
            result += ' ';
        result += hexadecimal[byte >> 4U];
        result += hexadecimal[byte & 0x0FU];
    }
    return result;
}

std::string benchText() {
    return text;
}

std::string replaced(std::string whole, const std::string& from, const std::string& to) {
    const auto found = whole.find(from);
    EXPECT_NE(found, std::string::npos) << from;
    return found == std::string::npos ? whole : whole.replace(found, from.size(), to);
}

VehicleBench::VehicleBench(const std::string& vehicle) {
    const VehicleFile file = readVehicleText(vehicle, ".");
    for (const Mistake& mistake : file.mistakes)
        ADD_FAILURE() << inWords(mistake, "bench");
    transport = std::make_unique<SimulatedTransport>(std::make_shared<VehicleDescription>(file.description), clock);
    link = transport->open("One");
}

void VehicleBench::expectTalk(Talk talk) {
    expect(talk, false);
}

void VehicleBench::expectTalkToGroup(Talk talk) {
    expect(talk, true);
}

void VehicleBench::expect(Talk talk, bool functional) {
    for (const auto& [request, answer] : talk) {
        link->send(bytes(request), functional);
        EXPECT_EQ(answers(), answer) << "to " << request;
    }
}

std::string VehicleBench::answers() {
    std::string all;
    while (const auto answer = link->receive(clock->now()))
        all += (all.empty() ? "" : " | ") + digits(answer->bytes);
    return all;
}

std::string VehicleBench::answersUntil(int milliseconds) {
    std::string all;
    for (int passed = 0; passed <= milliseconds; ++passed) {
        while (const auto answer = link->receive(clock->now()))
            all += (all.empty() ? "" : " | ") + std::to_string(answer->time.count() / 1000) + ": " + digits(answer->bytes);
        if (passed < milliseconds)
            pass(1);
    }
    return all;
}

void VehicleBench::pass(int milliseconds) {
    clock->advance(std::chrono::milliseconds(milliseconds));
}

void VehicleBench::unlock() {
    expectTalk({{"10 03", "50 03 00 19 00 C8"}, {"10 02", "50 02 00 32 01 F4"}, {"27 01", "67 01 11 22"}, {"27 02 1E D2", "67 02"}});
}

}  // namespace velkotx::host::test
