// The news that wait for the operator.
#include "operator/Inbox.h"

namespace velkotx::host {

void Inbox::put(ScreenNews news) {
    const std::lock_guard guard(newsLock_);
    if (news.kind == ScreenNews::Kind::changed && replaceChange(news))
        return;
    if (news.kind != ScreenNews::Kind::changed)
        std::erase_if(changes_, [&](const auto& change) { return change.first.first == news.screen; });
    news_.push_back(std::move(news));
}

// A change has one parameter; one with several is kept as it is.
bool Inbox::replaceChange(ScreenNews& news) {
    if (news.parameters.size() != 1)
        return false;
    const auto [waiting, isFirst] =
        changes_.try_emplace({news.screen, news.parameters.begin()->first}, news_.size());
    if (isFirst)
        return false;
    news_[waiting->second].parameters.swap(news.parameters);
    return true;
}

std::vector<ScreenNews> Inbox::take() {
    std::vector<ScreenNews> taken;
    const std::lock_guard guard(newsLock_);
    taken.swap(news_);
    changes_.clear();
    return taken;
}

}  // namespace velkotx::host
