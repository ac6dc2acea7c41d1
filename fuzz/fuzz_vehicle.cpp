// Any bytes as a vehicle file, which is read and no more: a description, or mistakes with a place and words.
#include "Abort.h"

#include <vehicle/ReadVehicle.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // No data file stands there.
    const velkotx::host::VehicleFile file =
        velkotx::host::readVehicleText({reinterpret_cast<const char*>(data), size}, "/nonexistent");
    for (const velkotx::host::Mistake& mistake : file.mistakes) {
        if (mistake.line < 0 || mistake.text.empty()) fuzz::fail("a mistake without words");
        if (velkotx::host::inWords(mistake, "f").empty()) fuzz::fail("a mistake without a place");
    }
    return 0;
}
