// A screen of a run as lines of a terminal.
#pragma once

#include "operator/ScreenNews.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace velkotx::host {

class ScreenView {
public:
    explicit ScreenView(const ScreenNews& opening) : opening_(opening) { learn(opening.parameters); }

    // Later values of the run.
    void change(const std::map<std::string, COtxValue>& parameters);
    // A later value of the operator, whose type is only his guess.
    void set(const std::string& parameter, const COtxValue& value);
    // "name = value" in the order of the names, under a heading.
    std::vector<std::string> lines() const;
    // Values of the type that the parameter has, as far as the run has told, else none. One will do; but of a document's
    // enumeration, all elements that were ever shown.
    std::vector<COtxValue> examples(const std::string& parameter) const;

    const std::string& name() const { return opening_.screen; }
    // As it was opened, with the values of now.
    const ScreenNews& opening() const { return opening_; }

private:
    void learn(const std::string& parameter, const COtxValue& value);
    void learn(const std::map<std::string, COtxValue>& parameters);

    ScreenNews opening_;
    std::map<std::string, std::vector<COtxValue>> examples_;
    std::set<std::string> guessed_;  // set by the operator, while the type wasn't known
};

}  // namespace velkotx::host
