// The screens that a script may see to, held back from the operator.
#pragma once

#include "operator/ScreenNews.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace velkotx::host {

class Operator;

// What the script sees to, the operator doesn't hear of; what it leaves alone is handed over. Any thread.
class HeldBack {
public:
    explicit HeldBack(std::shared_ptr<Operator> theOperator) : operator_(std::move(theOperator)) {}

    // A screen was opened. One that shares the name of a screen that is held back ends with it. Gives whether it is held
    // back.
    bool opened(ScreenNews opening, bool mayBeScripted);
    // All other news.
    void pass(ScreenNews news);

    // Hands over what the script will leave open, as far as that can be told. Gives whether that is anything.
    bool handOver(const std::function<bool(const std::string& screen)>& isLeftOpen);

private:
    const std::shared_ptr<Operator> operator_;
    // Also held while the operator is told, which waits for nobody, so that it hears of a screen's closing last.
    std::mutex openLock_;
    std::map<std::string, ScreenNews> open_;  // guarded by openLock_
};

}  // namespace velkotx::host
