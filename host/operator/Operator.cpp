// The operator of a run.
#include "operator/Operator.h"

#include "operator/Attendant.h"
#include "operator/OperatorInput.h"
#include "rest/HostThread.h"

#include <algorithm>
#include <utility>

namespace velkotx::host {

namespace {

// A screen that changes all the time is still to be read, and typed at.
constexpr std::chrono::milliseconds refreshInterval{1000};

}  // namespace

Operator::Operator(std::unique_ptr<Attendant> attendant, std::unique_ptr<OperatorInput> input,
                   std::unique_ptr<Attendant> standIn)
    : attendant_(std::move(attendant)), input_(std::move(input)), standIn_(std::move(standIn)) {}

Operator::~Operator() {
    finish();
}

void Operator::start() {
    thread_ = std::thread([this] { work(); });
}

void Operator::finish() {
    if (!thread_.joinable())
        return;
    isOver_ = true;
    input_->wake();
    thread_.join();
}

bool Operator::hasFailed() const {
    return attendant_->hasFailed();
}

void Operator::sendRequest(const COtxValue& message) {
    if (auto news = readNews(message))
        tell(std::move(*news));
}

void Operator::tell(ScreenNews news) {
    if (news.kind == ScreenNews::Kind::cancelled)
        input_->restore();  // the next signal may end the process
    inbox_.put(std::move(news));
    input_->wake();
}

void Operator::work() {
    const HostThread registered;
    for (;;) {
        const bool isOver = isOver_;  // ahead of the last look into the inbox
        takeNews();
        if (isOver)
            return attendant_->finish();
        const OperatorInput::Event event = input_->next(attendant_->asks() != 0, untilRefresh());
        switch (event.what) {
            case OperatorInput::What::line: obey(event.line); break;
            case OperatorInput::What::noAnswer:
                asked_ = 0;
                attendant_->closeWithoutAnswer();
                break;
            case OperatorInput::What::gone: handOver(); break;
            case OperatorInput::What::woken: break;
        }
    }
}

void Operator::takeNews() {
    for (const ScreenNews& news : inbox_.take())
        attendant_->take(news);
    if (attendant_->isStale() && untilRefresh()->count() == 0) {
        attendant_->refresh();
        refreshed_ = Clock::now();
    }
    settle();
}

// What was typed behind a prompt isn't for one that takes its place.
void Operator::settle() {
    const std::size_t asks = attendant_->asks();
    if (asked_ != 0 && asks != asked_ && input_->discard())
        attendant_->drop();
    if (asks != 0)
        input_->prepare();
    attendant_->settle(input_->typed());
    asked_ = attendant_->asks();
}

// News that came while the line was typed come first, so that it answers nothing else than what it was typed for.
void Operator::obey(const std::string& line) {
    const std::size_t asked = attendant_->asks();
    asked_ = 0;
    for (const ScreenNews& news : inbox_.take())
        attendant_->take(news);
    if (attendant_->asks() == asked)
        attendant_->obey(line);
    else
        attendant_->drop();
}

void Operator::handOver() {
    const std::vector<ScreenNews> open = attendant_->openScreens();
    attendant_ = std::move(standIn_);
    for (const ScreenNews& each : open)
        attendant_->take(each);
}

std::optional<std::chrono::milliseconds> Operator::untilRefresh() const {
    if (!attendant_->isStale())
        return {};
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(refreshed_ + refreshInterval - Clock::now());
    return std::max(left, std::chrono::milliseconds(0));
}

}  // namespace velkotx::host
