// A simulated vehicle for tests, and talks with it written down in hexadecimal digits.
#pragma once

#include <vehicle/ManualClock.h>
#include <vehicle/ReadVehicle.h>
#include <vehicle/SimulatedTransport.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace velkotx::host::test {

Pdu bytes(const std::string& digits);
std::string digits(const Pdu& pdu);

// Two control units, One and Two, in the group All; One has something for every service.
std::string benchText();

// The text with the first `from` in it replaced.
std::string replaced(std::string text, const std::string& from, const std::string& to);

// A vehicle, its clock, and a link to the control unit One.
class VehicleBench {
public:
    explicit VehicleBench(const std::string& text = benchText());

    using Talk = std::initializer_list<std::pair<const char*, const char*>>;

    // Sends each request, and expects the answer that is there at once: "" for none, "A | B" for several.
    void expectTalk(Talk talk);
    // The same, functional.
    void expectTalkToGroup(Talk talk);
    // The answers that are there now, joined by " | ".
    std::string answers();
    // Passes time, and gives the answers that come in it, each with the milliseconds at which it came: "50: 7F 31 78".
    std::string answersUntil(int milliseconds);
    void pass(int milliseconds);
    void unlock();  // programming session and its security level

    std::shared_ptr<ManualClock> clock = std::make_shared<ManualClock>();
    std::unique_ptr<SimulatedTransport> transport;
    std::unique_ptr<Link> link;

private:
    void expect(Talk talk, bool functional);
};

}  // namespace velkotx::host::test
