// A screen of a run as lines of a terminal.
#pragma once

#include "operator/ScreenNews.h"

#include <string>
#include <vector>

namespace velkotx::host {

class ScreenView {
public:
    explicit ScreenView(const ScreenNews& opening) : opening_(opening) {}

    // Later values, of the run or of the operator.
    void change(const std::map<std::string, COtxValue>& parameters);
    // "name = value" in the order of the names, under a heading.
    std::vector<std::string> lines() const;
    // The value of a parameter; empty for one that the run hasn't told.
    COtxValue present(const std::string& parameter) const;

    const std::string& name() const { return opening_.screen; }
    // As it was opened, with the values of now.
    const ScreenNews& opening() const { return opening_; }

private:
    ScreenNews opening_;
};

}  // namespace velkotx::host
