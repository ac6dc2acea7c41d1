// A screen of a run as lines of a terminal.
#include "operator/ScreenView.h"

#include "text/OneLine.h"
#include "text/ValueText.h"

#include <algorithm>

namespace velkotx::host {

void ScreenView::change(const std::map<std::string, COtxValue>& parameters) {
    for (const auto& [parameter, value] : parameters)
        opening_.parameters.insert_or_assign(parameter, value);
    learn(parameters);
}

void ScreenView::set(const std::string& parameter, const COtxValue& value) {
    opening_.parameters.insert_or_assign(parameter, value);
    if (!examples_.contains(parameter))
        guessed_.insert(parameter);
}

// What the operator has guessed comes back from the run as if it were the run's own.
void ScreenView::learn(const std::map<std::string, COtxValue>& parameters) {
    for (const auto& [parameter, value] : parameters)
        if (value.Type() != OTX::ValueType::Empty && !guessed_.contains(parameter))
            learn(parameter, value);
}

void ScreenView::learn(const std::string& parameter, const COtxValue& value) {
    std::vector<COtxValue>& known = examples_[parameter];
    const bool isNewElement =
        value.Type() == OTX::ValueType::EnumerationItem && std::ranges::find(known, value) == known.end();
    if (known.empty() || isNewElement)
        known.push_back(value);
}

std::vector<std::string> ScreenView::lines() const {
    std::vector<std::string> lines{"-- Screen: " + oneLine(name()) + " --"};
    for (const auto& [parameter, value] : opening_.parameters)
        lines.push_back(oneLine(parameter) + " = " + lineOf(value));
    return lines;
}

std::vector<COtxValue> ScreenView::examples(const std::string& parameter) const {
    const auto found = examples_.find(parameter);
    return found != examples_.end() ? found->second : std::vector<COtxValue>();
}

}  // namespace velkotx::host
