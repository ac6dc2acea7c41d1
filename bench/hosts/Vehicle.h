// The simulated vehicle of the diagnostics suite.
#pragma once

#include <objects/InstallVehicle.h>
#include <vehicle/ReadVehicle.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <utility>

namespace bench {

constexpr std::size_t downloadSize = 16 * 1024 * 1024;

// Made here and not read from a file, which would be as large.
inline velkotx::host::FlashSessionDescription makeUpdate() {
    velkotx::host::Bytes bytes(downloadSize);
    std::uint32_t random = 1;
    for (std::uint8_t& byte : bytes) {
        random = random * 1'664'525 + 1'013'904'223;
        byte = static_cast<std::uint8_t>(random >> 24);
    }
    velkotx::host::FlashSessionDescription session;
    session.id = "Update";
    auto& segment = session.blocks.emplace_back().segments.emplace_back();
    segment.uncompressedSize = bytes.size();
    segment.data = std::make_shared<const velkotx::host::Bytes>(std::move(bytes));
    return session;
}

inline velkotx::host::VehicleDescription readFourUnits() {
    auto file = velkotx::host::readVehicle(VEHICLES_FOLDER "/four-units.json");
    if (!file.mistakes.empty()) throw std::runtime_error(inWords(file.mistakes.front(), "four-units.json"));
    return std::move(file.description);
}

inline void installFourUnits(velkotx::Sequencer& sequencer) {
    installVehicle(sequencer, std::make_shared<velkotx::host::VehicleDescription>(readFourUnits()), nullptr);
}

inline void installWithUpdate(velkotx::Sequencer& sequencer) {
    auto description = std::make_shared<velkotx::host::VehicleDescription>(readFourUnits());
    description->flashSessions.push_back(makeUpdate());
    installVehicle(sequencer, std::move(description), nullptr);
}

}  // namespace bench
