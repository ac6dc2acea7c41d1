// The screens that a script may see to, held back from the operator.
#include "program/script/HeldBack.h"

#include "operator/Operator.h"

namespace velkotx::host {

bool HeldBack::opened(ScreenNews opening, bool mayBeScripted) {
    const std::lock_guard guard(openLock_);
    if (open_.contains(opening.screen))
        return true;
    if (mayBeScripted) {
        std::string screen = opening.screen;
        open_.emplace(std::move(screen), std::move(opening));
    } else {
        operator_->tell(std::move(opening));
    }
    return mayBeScripted;
}

void HeldBack::pass(ScreenNews news) {
    const std::lock_guard guard(openLock_);
    if (news.kind == ScreenNews::Kind::closed || news.kind == ScreenNews::Kind::settled)
        open_.erase(news.screen);
    operator_->tell(std::move(news));
}

bool HeldBack::handOver(const std::function<bool(const std::string& screen)>& isLeftOpen) {
    const std::lock_guard guard(openLock_);
    const std::size_t count = std::erase_if(open_, [&](const auto& held) {
        const bool isLeft = isLeftOpen(held.first);
        if (isLeft)
            operator_->tell(held.second);
        return isLeft;
    });
    return count > 0;
}

}  // namespace velkotx::host
