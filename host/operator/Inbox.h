// The news that wait for the operator.
#pragma once

#include "operator/ScreenNews.h"

#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace velkotx::host {

// Any thread puts in and takes out. Of the changes of one parameter only the latest waits, so that a screen that changes
// faster than anybody reads costs no more memory than it has parameters.
class Inbox {
public:
    void put(ScreenNews news);
    // All that waits, in the order in which it came; a change that took the place of an earlier one stands there.
    std::vector<ScreenNews> take();

private:
    using Parameter = std::pair<std::string, std::string>;  // of a screen

    bool replaceChange(ScreenNews& news);

    std::mutex newsLock_;
    // Guarded by newsLock_.
    std::vector<ScreenNews> news_;
    std::map<Parameter, std::size_t> changes_;  // where the latest change waits, since the screen's last other news
};

}  // namespace velkotx::host
