// Why the run refused what the host asked of it.
#include "text/Refusal.h"

#include <velkotx/Exceptions.h>

#include <string_view>

namespace velkotx::host {

std::string refusalOf(const std::exception& error) {
    std::string words = error.what();
    const auto* boundary = dynamic_cast<const BoundaryException*>(&error);
    if (boundary != nullptr && !std::string_view(boundary->text()).empty())
        words += std::string(": ") + boundary->text();
    return words;
}

}  // namespace velkotx::host
