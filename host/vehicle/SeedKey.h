// The algorithms that make a key from a seed.
#pragma once

#include <vehicle/ServiceDescription.h>

#include <string>
#include <string_view>

namespace velkotx::host {

using SeedKey = Bytes (*)(const Bytes& seed, const Bytes& constant);

// The algorithm of a name, or nullptr:
//   "xor"         each byte of the seed with the constant's, which begins again at its end
//   "add"         seed plus constant, as numbers of the seed's length, the high byte first
//   "complement"  every bit turned; takes no constant
//   "shift-xor"   35 times: shift left by one bit, and XOR with the constant when the highest bit was set
SeedKey findSeedKey(std::string_view name);
bool seedKeyNeedsConstant(std::string_view name);
// All names, for messages.
std::string seedKeyNames();

}  // namespace velkotx::host
