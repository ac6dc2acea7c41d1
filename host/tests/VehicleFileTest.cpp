// Vehicle files: what is read from them, and every kind of mistake.
#include "VehicleBench.h"

#include <vehicle/Crc32.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>

namespace velkotx::host::test {
namespace {

struct Change {
    const char* from;
    const char* to;
    const char* mistake;  // without the file's name; the last part of its text is enough
};

std::vector<std::string> mistakesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (const Mistake& mistake : readVehicleText(text, ".").mistakes)
        lines.push_back(inWords(mistake, ""));
    return lines;
}

void expectMistake(const std::string& text, const std::string& wanted) {
    const auto lines = mistakesOf(text);
    std::string all;
    for (const std::string& line : lines)
        all += line + '\n';
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(),
                            [&](const std::string& line) { return line.find(wanted) != std::string::npos; }))
        << "wanted: " << wanted << "\ngot:\n" << all;
}

TEST(VehicleFiles, BenchHasNoMistake) {
    EXPECT_EQ(mistakesOf(benchText()), std::vector<std::string>());
}

// One control unit whose part `what` is told by the rest of the text.
std::string unitWith(const std::string& rest) {
    return "{ \"name\": \"V\", \"controlUnits\": [{ \"name\": \"U\", \"requestAddress\": 1, \"responseAddress\": 2,\n" + rest +
           "\n}] }";
}

TEST(VehicleFiles, MistakesOfControlUnits) {
    const Change changes[] = {
        {"\"name\": \"Bench\"", "\"title\": \"Bench\"", ":1: the key \"name\" is missing"},
        {"\"name\": \"Bench\"", "\"title\": \"Bench\"", ":2: /title: unknown key"},
        {"\"name\": \"Bench\"", "\"name\": 7", ":2: /name: expected a text"},
        {"\"name\": \"Bench\"", "\"name\": \"B\", \"name\": \"C\"", ":2: the key \"name\" stands here twice"},
        {"\"name\": \"Two\"", "\"name\": \"One\"", "/controlUnits/1: another one before it has the same name"},
        {"\"name\": \"Two\"", "\"name\": \"All\"", "/controlUnits/1: a group has the same name"},
        {"\"requestAddress\": 3", "\"requestAddress\": 1", "/controlUnits/1: another one before it has the same requestAddress"},
        {"\"responseAddress\": 4", "\"responseAddress\": 2", "another one before it has the same responseAddress"},
        {"\"requestAddress\": 3", "\"requestAddress\": \"0xZ\"", "/controlUnits/1/requestAddress: expected a whole number"},
        {"\"requestAddress\": 3", "\"requestAddress\": -3", "expected a whole number from 0 to 4294967295"},
        {"\"requestAddress\": 3", "\"requestAddress\": 4294967296", "expected a whole number from 0 to 4294967295"},
        {"\"requestAddress\": 3", "\"requestAddress\": 3.5", "expected a whole number"},
        {"\"responseAddress\": 4, \"groups\": [\"All\"]", "\"responseAddress\": 4, \"groups\": [\"Any\"]", "no group is named \"Any\""},
        {"\"responseAddress\": 4, \"groups\": [\"All\"]", "\"responseAddress\": 4, \"groups\": \"All\"", "/controlUnits/1/groups: expected a list"},
        {"\"id\": 1 }", "\"id\": 4 }", "/controlUnits/0/sessions: the default session, id 1, is missing"},
        {"\"id\": 2, \"from\"", "\"id\": 1, \"from\"", "/controlUnits/0/sessions/1: another one before it has the same id"},
        {"\"id\": 2, \"from\"", "\"id\": 127, \"from\"", "the id of a session lies between 1 and 0x7E"},
        {"[\"extended\", \"programming\"]", "[\"extended\", \"programing\"]", "/controlUnits/0/sessions/1/from/1: no session is named \"programing\""},
        {"[\"extended\", \"programming\"]", "[]", "expected at least one session"},
        {"\"p2\": 25", "\"p2\": -1", "/controlUnits/0/sessions/2/p2: expected a time in milliseconds"},
        {"\"p2\": 25", "\"p2\": 70000", "p2 is at most 65535 milliseconds"},
        {"\"p2\": 25", "\"p2\": 0.5", "/controlUnits/0/sessions/2: p2 is told in whole milliseconds"},
        {"\"p2Star\": 2000", "\"p2Star\": 2005", "/controlUnits/0/sessions/2: p2Star is told in steps of 10 milliseconds"},
        {"\"seed\": \"11 22\"", "\"seed\": \"00 00\"", "/controlUnits/0/securities/0: a seed of zeros tells that the level is unlocked already"},
        {"\"service\": \"0x28\"", "\"service\": \"0x99\"", "/controlUnits/0/access/4/service: the simulation has no such service"},
        {"\"service\": \"0x14\"", "\"service\": \"0x14\", \"subfunction\": 1", "/controlUnits/0/access/2: the service has no subfunctions"},
        {"\"subfunction\": 10", "\"subfunction\": 11", "/controlUnits/0/access/3: the service has no such subfunction"},
        {"\"subfunction\": 2", "\"subfunction\": 3", "/controlUnits/0/access/1: another one before it has the same service and subfunction"},
        {"\"effect\": \"checkCrc32\", \"optionLength\": 4", "\"effect\": \"checkCrc32\", \"optionLength\": 3", "/controlUnits/0/routines/1/optionLength: the CRC-32 in the option record has 4 bytes"},
        {"\"level\": 1", "\"level\": 2", "the level is that of requestSeed: odd"},
        {"\"level\": 3", "\"level\": 1", "/controlUnits/0/securities/1: another one before it has the same level"},
        {"\"algorithm\": \"xor\"", "\"algorithm\": \"rot13\"", "unknown algorithm \"rot13\""},
        {"\"constant\": \"0F F0\", ", "", "the algorithm needs a \"constant\""},
        {"\"constant\": \"0F F0\"", "\"constant\": \"0F F\"", "/controlUnits/0/securities/0/constant: expected bytes, two hexadecimal digits each"},
        {"\"attempts\": 2", "\"attempts\": 0", "expected at least one attempt"},
        {"\"seedLength\": 3", "\"seedLength\": 0", "a seed has 1 to 255 bytes"},
        {"\"security\": \"flash\" },\n        { \"service\": \"0x28\"", "\"security\": \"flas\" },\n        { \"service\": \"0x28\"", "no security level is named \"flas\""},
        {"\"supported\": false", "\"supported\": 0", "expected true or false"},
        {"{ \"id\": 2, \"data\"", "{ \"id\": 1, \"data\"", "/controlUnits/0/dataIdentifiers/2: another one before it has the same id"},
        {"\"data\": \"01 02\"", "\"data\": \"\"", "a data identifier has at least one byte"},
        {"\"data\": \"01 02\"", "\"data\": {}", "expected one of the keys \"ascii\", \"number\", \"counter\", \"curve\""},
        {"\"ascii\": \"VIN\", \"length\": 4", "\"ascii\": \"VIN\", \"length\": 2", "the text is longer than its length"},
        {"[100, 10]", "[100]", "expected a time in milliseconds and a value"},
        {"[100, 10]", "[300, 10]", "expected a later time than that of the point before"},
        {"[[0, 0], [100, 10], [200, -10]]", "[]", "/controlUnits/0/dataIdentifiers/3/data/curve: expected at least one point"},
        {"\"factor\": 0.5", "\"factor\": 0", "a factor of 0 loses every value"},
        {"\"read\": false", "\"read\": \"no\"", "expected true, false, or an object"},
        {"\"memory\": \"flash\"", "\"memory\": \"flush\"", "no memory is named \"flush\""},
        {"\"memory\": \"flash\"", "\"memory\": \"\"", "which \"memory\" does it erase?"},
        {"\"effect\": \"checkCrc32\"", "\"effect\": \"crc\"", "expected one of \"none\", \"eraseMemory\", \"checkCrc32\""},
        {"\"0x040506\"", "\"0x010203\"", "/controlUnits/0/troubleCodes/1: another one before it has the same code"},
        {"\"0x040506\"", "\"0x1000000\"", "a trouble code has three bytes"},
        {"\"record\": 16", "\"record\": 255", "the number of a record lies between 1 and 0xFE"},
        {"\"record\": 2", "\"record\": 1", "another one before it has the same record"},
        {"\"start\": 8192", "\"start\": 4097", "overlaps the memory \"flash\""},
        {"\"size\": 256", "\"size\": 0", "expected a size from 1 byte to 64 MB"},
        {"\"size\": 256", "\"size\": 2", "the content is larger than the memory"},
        {"\"maxBlockLength\": 10", "\"maxBlockLength\": 2", "maxBlockLength lies between 3 and 0xFFFFFF"},
        {"\"maxResponseLength\": 64", "\"maxResponseLength\": 7", "expected at least 8 bytes"},
    };
    for (const Change& change : changes)
        expectMistake(replaced(benchText(), change.from, change.to), change.mistake);
}

TEST(VehicleFiles, MistakesOfFaults) {
    const std::pair<const char*, const char*> faults[] = {
        {"{}", "expected exactly one of the keys"},
        {"{ \"delay\": 1, \"silence\": true }", "expected exactly one of the keys"},
        {"{ \"silence\": false }", "expected true, or no such key"},
        {"{ \"negative\": 0 }", "0 is no negative response code"},
        {"{ \"negative\": 256 }", "expected a whole number from 0 to 255"},
        {"{ \"pending\": { \"times\": 0 } }", "expected 1 to 10000 times"},
        {"{ \"length\": 0 }", "expected at least one byte"},
        {"{ \"answer\": \"\" }", "expected at least one byte"},
        {"{ \"delay\": 1, \"from\": 0 }", "\"from\" counts from 1"},
        {"7", ":2: /controlUnits/0/faults/0: expected an object"},
    };
    for (const auto& [fault, mistake] : faults)
        expectMistake(unitWith(std::string("\"faults\": [") + fault + "]"), mistake);
}

// A service whose request has these parameters.
std::string serviceWith(const std::string& parameters) {
    return unitWith(R"("services": [{ "name": "S", "request": { "prefix": "22", "parameters": [)" + parameters + "] } }]");
}

TEST(VehicleFiles, MistakesOfServices) {
    const std::pair<const char*, const char*> parameters[] = {
        {R"({ "name": "A", "bits": 65 })", "/controlUnits/0/services/0/request/parameters/0: 65 bits don't fit the coding: expected 1 to 64 bits"},
        {R"({ "name": "A", "bits": 0 })", "0 bits don't fit the coding"},
        {R"({ "name": "A", "coding": "float", "bits": 16 })", "16 bits don't fit the coding"},
        {R"({ "name": "A", "coding": "bcd", "bits": 6 })", "6 bits don't fit the coding"},
        {R"({ "name": "A", "coding": "ascii", "bits": 12 })", "12 bits don't fit the coding"},
        {R"({ "name": "A", "coding": "morse" })", "expected one of \"unsigned\", \"signed\""},
        {R"({ "name": "A", "bits": 8, "bytes": 1 })", "\"bits\" stands here already"},
        {R"({ "name": "A", "bytes": "rest" })", "only texts and byte fields have a length that isn't fixed"},
        {R"({ "name": "A", "byteOrder": "little" })", "expected one of \"highFirst\", \"lowFirst\""},
        {R"({ "name": "A", "bit": 8 })", "expected a whole number from 0 to 7"},
        {R"({ "name": "A", "coding": "bytes", "bit": 1 })", "texts and byte fields begin at a whole byte"},
        {R"({ "name": "A", "coding": "texts" })", "the key \"texts\" is missing"},
        {R"({ "name": "A", "texts": { "x": "on" } })", "/texts/x: expected a coded value as the key"},
        {R"({ "name": "A", "texts": { "7..1": "on" } })", "expected a coded value as the key"},
        {R"({ "name": "A", "texts": { "1": "on" }, "default": "off" })", "not a value of this parameter's coding"},
        {R"({ "name": "A", "coding": "boolean", "constant": 1 })", "not a value of this parameter's coding"},
        {R"({ "name": "A", "default": "x" })", "not a value of this parameter's coding"},
        {R"({ "name": "A", "default": 9223372036854775808 })", "an integer of more than 64 bits"},
        {R"({ "name": "A", "coding": "bytes", "default": "0" })", "expected bytes, two hexadecimal digits each"},
        {R"({ "name": "A", "minimum": 2, "maximum": 1 })", "the minimum is above the maximum"},
        {R"({ "name": "A", "minimum": 300 })", "/parameters/0: no value of 8 bits lies within its limits"},
        {R"({ "name": "A", "maximum": -1 })", "no value of 8 bits lies within its limits"},
        {R"({ "name": "A", "coding": "signed", "minimum": 128 })", "no value of 8 bits lies within its limits"},
        {R"({ "name": "A", "coding": "bcd", "minimum": 100 })", "no value of 8 bits lies within its limits"},
        {R"({ "name": "A", "factor": -0.5, "minimum": 1 })", "no value of 8 bits lies within its limits"},
        {R"({ "name": "A", "default": 1, "constant": 2 })", "/default: the \"constant\" stands there, and nothing else is ever sent"},
        {R"({ "name": "A", "byte": 0 })", "lies in the message's prefix"},
        {R"({ "name": "A", "fields": [] })", "expected at least one field"},
        {R"({ "name": "A", "count": "rest", "fields": [] })", "expected at least one field"},
        {R"({ "name": "L" }, { "name": "A", "count": { "countedBy": "L" }, "fields": [] })", "expected at least one field"},
        {R"({ "name": "A", "count": "rest", "fields": 7 })", "/parameters/0/fields: expected a list"},
        {R"({ "name": "A" }, { "name": "A" })", "another one before it has the same name"},
        {R"({ "name": "A", "coding": "bytes", "bytes": "rest" }, { "name": "B" })", "nothing can follow what reaches to the end"},
        {R"({ "name": "A", "count": 2, "fields": [{ "name": "B", "coding": "bytes", "bytes": "rest" }] })", "can't be repeated"},
        {R"({ "name": "A", "coding": "bytes", "bytes": { "countedBy": "B" } })", "no unsigned parameter named \"B\" stands before it"},
        {R"({ "name": "A", "count": { "countedBy": "A" }, "fields": [{ "name": "C" }] })", "no unsigned parameter named \"A\""},
        {R"({ "name": "A", "unti": "V" })", "/parameters/0/unti: unknown key"},
        {R"({ "name": "" })", "/parameters/0/name: expected at least one character"},
        {R"({ "name": "A", "count": 2 })", "/parameters/0/count: only a structure is repeated: \"fields\" are missing"},
        {R"({ "name": "A", "count": 0, "fields": [{ "name": "B" }] })", "/count: expected at least one repetition"},
        {R"({ "name": "A", "default": 256 })", "/default: parameter 'A': 256 doesn't fit into 8 bits"},
        {R"({ "name": "A", "default": -1 })", "/default: parameter 'A': -1 is negative"},
        {R"({ "name": "A", "maximum": 5, "default": 6 })", "/default: parameter 'A': 6 is above the maximum 5"},
        {R"({ "name": "A", "constant": 256 })", "/constant: parameter 'A': 256 doesn't fit into 8 bits"},
        {R"({ "name": "A", "coding": "ascii", "bytes": 2, "default": "abc" })", "abc is longer than 2 bytes"},
        {R"({ "name": "A", "coding": "float", "default": 1e300 })", "doesn't fit into 32 bits"},
        {R"({ "name": "A", "texts": { "300": "on" } })", "/texts/300: 300 doesn't fit into 8 bits"},
        {R"({ "name": "A", "texts": { "1": "on", "1..3": "off" } })", "/texts/1..3: another text before it stands for the same value"},
        {R"({ "name": "A", "bits": 16 }, { "name": "B", "byte": 2 })", "/parameters/1: writes bits that another parameter before it writes"},
        {R"({ "name": "A", "bits": 4, "bit": 1 }, { "name": "B", "byte": 1, "bit": 4, "bits": 4 })", "/parameters/1: writes bits"},
        {R"({ "name": "S", "fields": [{ "name": "A" }, { "name": "B", "byte": 0 }] })", "/parameters/0: writes bits"},
        {R"({ "name": "A", "coding": "bytes", "bytes": 4 }, { "name": "B", "byte": 3 })", "/parameters/1: writes bits"},
    };
    for (const auto& [parameter, mistake] : parameters)
        expectMistake(serviceWith(parameter), mistake);
    expectMistake(unitWith(R"("services": [{ "name": "S" }])"), "the key \"request\" is missing");
    expectMistake(unitWith(R"("services": [{ "name": "S", "request": {} }])"), "a request without any byte");
    expectMistake(unitWith(R"("services": [{ "name": "S", "request": { "prefix": "22" }, "positive": [{ "prefix": "7F" }] }])"),
                  "a positive response can't begin with 7F");
    expectMistake(unitWith(R"("services": [{ "name": "S", "request": { "prefix": "22" }, "negative": [{ "prefix": "62" }] }])"),
                  "a negative response has to begin with 7F");
    expectMistake(unitWith(R"("comParameters": [{ "name": "P" }])"), "the key \"default\" is missing");
}

TEST(VehicleFiles, MistakesOfResponses) {
    const auto service = [](const std::string& responses) {
        return unitWith(R"("services": [{ "name": "S", "request": { "prefix": "22 00" }, )" + responses + " }]");
    };
    expectMistake(service(R"("positive": [{ "prefix": "63" }])"), "/positive/0: a response to 22 begins with 62");
    expectMistake(service(R"("negative": [{ "prefix": "7F 23" }])"), "/negative/0: a response to 22 begins with 7F 22");
    expectMistake(service(R"("positive": [{ "prefix": "62", "parameters": [{ "name": "A", "constant": 256 }] }])"),
                  "/positive/0/parameters/0/constant: parameter 'A': 256 doesn't fit into 8 bits");
}

TEST(VehicleFiles, ResponsesThatAreNeverChosen) {
    const auto service = [](const std::string& first, const std::string& second) {
        return unitWith(R"("services": [{ "name": "S", "request": { "prefix": "22" }, "positive": [)" + first + ", " + second + "] }]");
    };
    expectMistake(service(R"({ "name": "P", "prefix": "62" })", R"({ "name": "Q", "prefix": "62 01" })"),
                  "/positive/1: never chosen: all that fits it fits the response \"P\" before it");
    const std::pair<const char*, const char*> right[] = {
        {R"({ "name": "P", "prefix": "62 01" })", R"({ "name": "Q", "prefix": "62" })"},
        {R"({ "name": "P", "prefix": "62", "parameters": [{ "name": "F", "fields": [{ "name": "A", "constant": 1 }] }] })",
         R"({ "name": "Q", "prefix": "62 01" })"},
    };
    for (const auto& [first, second] : right)
        EXPECT_EQ(mistakesOf(service(first, second)), std::vector<std::string>()) << first;
}

TEST(VehicleFiles, MistakesOfGroups) {
    const std::string unit = R"(, "controlUnits": [{ "name": "U", "requestAddress": 1, "responseAddress": 2, "groups": ["G"] }] })";
    const auto groups = [&](const std::string& list) { return R"({ "name": "V", "groups": [)" + list + "]" + unit; };
    const std::string group = R"({ "name": "G", "address": 9 })";
    EXPECT_EQ(mistakesOf(groups(group)), std::vector<std::string>());
    expectMistake(groups(group + R"(, { "name": "H", "address": 9 })"), "/groups/1: another one before it has the same address");
    expectMistake(groups(group + R"(, { "name": "H", "address": 1 })"), "/groups/1: the control unit \"U\" has the same address");
    expectMistake(replaced(groups(group), R"(["G"])", R"(["G", "G"])"),
                  "/controlUnits/0/groups/1: another one before it has the same name");
}

TEST(VehicleFiles, FunctionalServicesNeedAGroup) {
    const std::string service = R"("services": [{ "name": "S", "functional": true, "request": { "prefix": "3E 00" } }])";
    expectMistake(unitWith(service), "/controlUnits/0/services/0: functional, but the control unit is in no group");
    expectMistake(unitWith(R"("variants": [{ "name": "W", )" + service + "}]"),
                  "/controlUnits/0/variants/0/services/0: functional, but the control unit is in no group");
    // Those of the vehicle are for the control units that can use them.
    EXPECT_EQ(mistakesOf(replaced(unitWith("\"resetTime\": 0"), "\"controlUnits\"", service + ", \"controlUnits\"")),
              std::vector<std::string>());
}

TEST(VehicleFiles, SegmentsThatARequestCantCarry) {
    const auto block = [](const std::string& rest) {
        return replaced(unitWith("\"resetTime\": 0"), "\"controlUnits\"",
                        R"("flashSessions": [{ "id": "F", "blocks": [{ "id": "B", "segments": [{ "startAddress": 256, "data": "01", "uncompressedSize": 65536 }], )" +
                            rest + R"( }] }], "controlUnits")");
    };
    const std::string segment = "/flashSessions/0/blocks/0/segments/0: ";
    expectMistake(block(R"("addressLength": 1)"), segment + "the startAddress doesn't fit into an addressLength of 1 byte");
    expectMistake(block(R"("sizeLength": 2)"), segment + "the size doesn't fit into a sizeLength of 2 bytes");
    EXPECT_EQ(mistakesOf(block(R"("addressLength": 2, "sizeLength": 3)")), std::vector<std::string>());
}

TEST(VehicleFiles, MistakesOfVariants) {
    expectMistake(unitWith(R"("variants": [{ "name": "V" }, { "name": "W", "matches": [{ "dataIdentifier": 9, "bytes": "00" }] }])"),
                  "/variants/0: only the last variant can be without \"matches\"");
    expectMistake(unitWith(R"("variants": [{ "name": "W", "matches": [{ "dataIdentifier": 9, "bytes": "" }] }])"),
                  "/variants/0/matches/0/bytes: expected at least one byte");
}

TEST(VehicleFiles, MistakesOfComParameters) {
    const std::pair<const char*, const char*> defaults[] = {
        {R"({ "name": "CP_P2Max", "default": "soon" })", "/comParameters/0: parameter 'CP_P2Max': "},
        {R"({ "name": "CP_P2Max", "default": -1 })", "parameter 'CP_P2Max': -1 is negative"},
        {R"({ "name": "CP_P2Max", "default": 9223372036854775807 })", "is above the maximum"},
        {R"({ "name": "CP_P2Max", "parts": [{ "name": "a", "default": 1 }] })", "ComParameter 'CP_P2Max' has a value, and no parts"},
        {R"({ "name": "CP_TesterPresentHandling", "default": "maybe" })", "parameter 'CP_TesterPresentHandling': "},
        {R"({ "name": "" , "default": 1 })", "/comParameters/0/name: expected at least one character"},
    };
    for (const auto& [parameter, mistake] : defaults) {
        const std::string list = std::string("\"comParameters\": [") + parameter + "]";
        expectMistake(unitWith(list), mistake);
        expectMistake("{ \"name\": \"V\", " + list + ", \"controlUnits\": [] }", mistake);
    }
}

TEST(VehicleFiles, MistakesOfSources) {
    const auto identifier = [](const std::string& data) {
        return unitWith("\"dataIdentifiers\": [{ \"id\": 1, \"data\": " + data + " }]");
    };
    expectMistake(identifier(R"({ "number": 300 })"), "/data/number: doesn't fit into 1 byte");
    expectMistake(identifier(R"({ "number": -1 })"), "/data/number: doesn't fit");
    expectMistake(identifier(R"({ "number": 13, "factor": 0.05 })"), "/data/number: doesn't fit");
    expectMistake(identifier(R"({ "counter": 256 })"), "/data/counter: doesn't fit into 1 byte");
    expectMistake(identifier(R"({ "ascii": "A", "number": 1 })"), "/data: \"ascii\" and \"number\" are two sources: put them into a list");
    EXPECT_EQ(mistakesOf(identifier(R"([{ "number": 255 }, { "number": -128, "signed": true }, { "counter": 255 }, { "curve": 300 }])")),
              std::vector<std::string>());
}

// One mistake is told once.
TEST(VehicleFiles, NothingIsToldTwice) {
    for (const char* const part : {R"("services": [{ "name": "S", "request": { "prefix": "ZZ" } }])",
                                   R"("services": [{ "name": "S", "request": { "prefix": "22", "parameters": 7 } }])",
                                   R"("services": [{ "name": "S", "request": { "prefix": "22", "parameters": [{ "name": "A", "fields": 7 }] } }])",
                                   R"("services": [{ "name": "S", "request": { "prefix": "22" }, "negative": [{ "prefix": "ZZ" }] }])",
                                   R"("dataIdentifiers": [{ "id": 1, "data": { "ascii": 7 } }])",
                                   R"("groups": "All", "services": [{ "name": "S", "functional": true, "request": { "prefix": "22" } }])",
                                   R"("access": [{ "service": "0x99", "subfunction": 1 }])",
                                   R"("sessions": 7, "access": [{ "service": "0x10", "subfunction": 3 }])"})
        EXPECT_EQ(mistakesOf(unitWith(part)).size(), 1U) << part;
}

TEST(VehicleFiles, OddThingsThatAreNoMistake) {
    for (const char* const part : {R"("variants": [{ "name": "W", "matches": [{ "dataIdentifier": 9, "bytes": "00" }] }, { "name": "V" }])",
                                   R"("services": [{ "name": "S", "request": { "prefix": "22", "parameters": [
                                       { "name": "A", "texts": { "1": "on", "3": "on" } },
                                       { "name": "D", "byte": 3, "unit": "steps", "minimum": 255.4, "maximum": 300 },
                                       { "name": "B", "byte": 2, "bits": 4 }, { "name": "C", "byte": 2, "bit": 4, "bits": 4 }] } }])",
                                   R"("statusAvailability": 8, "troubleCodes": [{ "code": 1, "status": 9 }])",
                                   R"("access": [{ "service": "0x2E", "supported": false }, { "service": "0x10", "subfunction": 1 }])"})
        EXPECT_EQ(mistakesOf(unitWith(part)), std::vector<std::string>()) << part;
}

// What a small file can ask for is bounded.
TEST(VehicleFiles, TakesNoMoreThanItCanBear) {
    expectMistake(serviceWith(R"({ "name": "A", "count": 300, "fields": [{ "name": "B", "count": 300, "fields": [{ "name": "C" }] }] })"),
                  "more than 65535 repetitions");
    std::string memories;
    for (const char* const memory : {"1", "2", "3", "4", "5"}) {
        if (!memories.empty())
            memories += ',';
        memories.append(R"({ "name": "M)").append(memory).append(R"(", "start": )").append(memory);
        memories += R"(00000000, "size": 67108864 })";
    }
    expectMistake(unitWith("\"memories\": [" + memories + "]"),
                  "/controlUnits/0/memories/4: a vehicle has at most 256 MB of data and memory");
    std::string units, services;
    for (int number = 0; number < 1000; ++number) {
        const std::string comma = number == 0 ? "" : ",", name = "\"name\": \"N" + std::to_string(number) + "\"";
        const std::string address = std::to_string(number);
        units += comma + "{" + name + ", \"requestAddress\": " + address + ", \"responseAddress\": " + address + "}";
        services += comma + "{" + name + ", \"request\": { \"prefix\": \"22\" } }";
    }
    expectMistake("{ \"name\": \"V\", \"services\": [" + services + "], \"controlUnits\": [" + units + "] }",
                  "/controlUnits: too many control units for so many common services");
}

// A vehicle whose keys beside the control units are told.
std::string vehicleWith(const std::string& rest) {
    return replaced(benchText(), "\"name\": \"Bench\",", "\"name\": \"Bench\",\n" + rest + ",");
}

TEST(VehicleFiles, MistakesOfFlashData) {
    const auto session = [](const std::string& keys, const std::string& segment) {
        return vehicleWith("\"flashSessions\": [{ \"id\": \"F\", " + keys +
                           " \"blocks\": [{ \"id\": \"B\", \"segments\": [{ \"startAddress\": 0, " + segment + " }] }] }]");
    };
    EXPECT_EQ(mistakesOf(session("", "\"data\": \"01 02\"")), std::vector<std::string>());
    expectMistake(session("", "\"size\": 1"), "/flashSessions/0/blocks/0/segments/0: the key \"data\" is missing");
    expectMistake(session("", R"("data": { "file": "nowhere.bin" })"), "no file \"nowhere.bin\" stands beside the vehicle file");
    expectMistake(session("", R"("data": { "file": "../x.bin" })"), "expected a file in the folder of the vehicle file, or below");
    expectMistake(session("", R"("data": { "file": "/x.bin" })"), "expected a file in the folder of the vehicle file, or below");
    expectMistake(session("", R"("data": 7)"), "expected an object");
    expectMistake(session("", R"("data": "", "compressionEncryption": "zip")"), "expected a data format identifier");
    expectMistake(session(R"("direction": "SIDEWAYS",)", "\"data\": \"\""), "expected one of \"UPLOAD\", \"DOWNLOAD\"");
    expectMistake(session(R"("audiences": ["EVERYBODY"],)", "\"data\": \"\""), "/audiences/0: expected one of \"SUPPLIER\"");
    expectMistake(session(R"("controlUnit": "Three",)", "\"data\": \"\""), "no control unit is named \"Three\"");
    expectMistake(session(R"("controlUnit": "One", "securityAccessLevel": "x",)", "\"data\": \"\""),
                  "no security level of the control unit is named \"x\"");
}

TEST(VehicleFiles, MistakesOfInterfaces) {
    const auto interface = [](const std::string& keys) { return vehicleWith("\"comInterfaces\": [{ \"name\": \"I\"" + keys + " }]"); };
    EXPECT_EQ(mistakesOf(interface("")), std::vector<std::string>());
    expectMistake(interface(R"(, "status": "gone")"), "/comInterfaces/0/status: expected one of \"connected\"");
    expectMistake(interface(R"(, "batteryVoltage": "12")"), "expected a number, a list of [milliseconds, value]");
    expectMistake(interface(R"(, "properties": { "a": [] })"), "/comInterfaces/0/properties/a: expected true, false");
    expectMistake(interface(R"(, "ignition": [{ "pin": 0 }])"), "the key \"state\" is missing");
    expectMistake(interface(R"(, "ethernet": { "interfaces": { "a/b~": 1 } })"), "/ethernet/interfaces/a~1b~0: expected a list");
    expectMistake(vehicleWith("\"defaultComInterface\": \"J\""), "no interface is named \"J\"");
}

TEST(VehicleFiles, WhatIsNoJson) {
    expectMistake("", ":1: no JSON: syntax error");
    expectMistake("{\n\n\"name\": }", ":3: no JSON: syntax error");
    expectMistake("{ \"name\": 1e999 }", "number overflow");
    expectMistake("[]", ":1: expected an object");
    expectMistake("\"\xFF\"", "no JSON");
    expectMistake(std::string(100000, '['), "nested deeper than 64 levels");
    expectMistake("{ \"name\": \"V\" }", "the key \"controlUnits\" is missing");
    expectMistake("{ \"name\": \"V\", \"controlUnits\": [] }", "expected at least one control unit");
}

TEST(VehicleFiles, AllMistakesInTheOrderOfLines) {
    EXPECT_EQ(mistakesOf("{\n\"nam\": 1,\n\"controlUnits\": [\n{\"name\": 2,\n\"responseAddress\": true\n,\"requestAddress\": 1\n}]}"),
              (std::vector<std::string>{
                  ":1: the key \"name\" is missing", ":2: /nam: unknown key", ":4: /controlUnits/0/name: expected a text",
                  ":5: /controlUnits/0/responseAddress: expected a whole number from 0 to 4294967295, or a text like \"0x1F\""}));
}

TEST(VehicleFiles, FilesThatCannotBeRead) {
    EXPECT_EQ(inWords(readVehicle("nowhere.json").mistakes.at(0), "nowhere.json"), "nowhere.json: No such file or directory");
    EXPECT_EQ(inWords(readVehicle(".").mistakes.at(0), "."), ".: Is a directory");
}

// Any text gives mistakes and nothing worse.
TEST(VehicleFiles, TakesDamagedFiles) {
    std::mt19937 random(7);
    const std::string whole = benchText();
    int readable = 0;
    for (int round = 0; round < 2000; ++round) {
        std::string text = whole;
        for (auto damage = 1 + random() % 3; damage > 0; --damage) {
            const std::size_t place = random() % text.size();
            switch (random() % 8) {
            case 0:
                text[place] = static_cast<char>(random() % 256);
                break;
            case 1:
                text.erase(place, 1 + random() % 30);
                break;
            case 2:
                text.insert(place, text.substr(random() % text.size(), random() % 30));
                break;
            default:
                if (const auto digit = text.find_first_of("0123456789", place); digit != std::string::npos)
                    text[digit] = static_cast<char>('0' + random() % 10);
            }
        }
        const VehicleFile file = readVehicleText(text, ".");
        if (!file.mistakes.empty())
            continue;
        ++readable;
        SimulatedTransport transport(std::make_shared<VehicleDescription>(file.description), std::make_shared<ManualClock>());
    }
    EXPECT_GT(readable, 200);
}

TEST(CompactVehicle, HasNoMistakeAndItsChecksumsAreRight) {
    const VehicleFile file = readVehicle(std::filesystem::path(VELKOTX_EXAMPLES) / "vehicles" / "compact.json");
    for (const Mistake& mistake : file.mistakes)
        ADD_FAILURE() << inWords(mistake, "compact.json");
    ASSERT_EQ(file.description.controlUnits.size(), 3U);
    ASSERT_EQ(file.description.flashSessions.size(), 2U);
    for (const FlashBlockDescription& block : file.description.flashSessions[0].blocks) {
        const std::uint32_t crc = crc32(*block.segments.at(0).data);
        const Bytes wanted{static_cast<std::uint8_t>(crc >> 24U), static_cast<std::uint8_t>(crc >> 16U),
                           static_cast<std::uint8_t>(crc >> 8U), static_cast<std::uint8_t>(crc)};
        EXPECT_EQ(block.securities.at(0).checksum, wanted) << block.id;
    }
}

}  // namespace
}  // namespace velkotx::host::test
