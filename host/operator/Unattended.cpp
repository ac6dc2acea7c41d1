// Screens and dialogs where no operator is.
#include "operator/Unattended.h"

#include "operator/Dialog.h"
#include "operator/RunPort.h"
#include "text/OneLine.h"
#include "text/ValueText.h"

#include <ostream>

namespace velkotx::host {

void Unattended::take(const ScreenNews& news) {
    const bool isHandled = mode_ == WithoutOperator::defaults || news.modal;
    if (news.kind != ScreenNews::Kind::opened || !isHandled || !port_.isOpen(news.screen))
        return;
    if (mode_ == WithoutOperator::defaults)
        takeDefault(news);
    else
        fail(news);
}

void Unattended::fail(const ScreenNews& opening) {
    std::string lines = oneLine(opening.screen) + ": nobody is there to answer, the run is cancelled\n";
    for (const auto& [name, value] : opening.parameters)
        lines += "  " + oneLine(name) + " = " + lineOf(value) + '\n';
    err_ << lines << std::flush;
    hasFailed_ = true;
    port_.cancel();  // refused by a run that came to its end meanwhile
}

void Unattended::takeDefault(const ScreenNews& opening) {
    const std::unique_ptr<Dialog> dialog = makeDialog(opening);
    const std::optional<COtxValue> answer = dialog != nullptr ? dialog->preset() : std::nullopt;
    std::string done = "closed without an answer";
    if (answer) {
        const auto refusal = port_.sendEvent(outValuesChanged(opening.screen, {{"result", *answer}}));
        done = refusal ? "the default was refused: " + oneLine(*refusal) : "answered with its default, " + lineOf(*answer);
    } else if (dialog == nullptr) {
        done = "closed";
    }
    if (const auto refusal = port_.sendEvent(screenClosed(opening.screen)))
        done = "can't be closed: " + oneLine(*refusal);
    err_ << oneLine(opening.screen) + ": nobody is there, " + done + '\n' << std::flush;
}

}  // namespace velkotx::host
