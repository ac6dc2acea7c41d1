// A screen of a run as lines of a terminal.
#include "operator/ScreenView.h"

#include "text/OneLine.h"
#include "text/ValueText.h"

namespace velkotx::host {

void ScreenView::change(const std::map<std::string, COtxValue>& parameters) {
    for (const auto& [parameter, value] : parameters)
        opening_.parameters.insert_or_assign(parameter, value);
}

std::vector<std::string> ScreenView::lines() const {
    std::vector<std::string> lines{"-- Screen: " + oneLine(name()) + " --"};
    for (const auto& [parameter, value] : opening_.parameters)
        lines.push_back(oneLine(parameter) + " = " + lineOf(value));
    return lines;
}

COtxValue ScreenView::present(const std::string& parameter) const {
    const auto found = opening_.parameters.find(parameter);
    return found != opening_.parameters.end() ? found->second : COtxValue();
}

}  // namespace velkotx::host
