// Screens and dialogs where no operator is.
#include "operator/Unattended.h"

#include "operator/Dialog.h"
#include "operator/RunPort.h"
#include "text/OneLine.h"
#include "text/ValueText.h"

#include <algorithm>
#include <ostream>

namespace velkotx::host {

namespace {

// "name = value", each on a line of its own.
std::string valuesOf(const ScreenNews& opening) {
    std::string lines;
    for (const auto& [name, value] : opening.parameters)
        lines += "  " + oneLine(name) + " = " + lineOf(value) + '\n';
    return lines;
}

// The screen's name, and the title of a dialog, or else its message.
std::string called(const ScreenNews& opening, const Dialog* dialog) {
    std::string name = oneLine(opening.screen);
    if (dialog == nullptr)
        return name;
    for (const char* parameter : {"title", "message"}) {
        const auto found = opening.parameters.find(parameter);
        if (found != opening.parameters.end())
            return name + " \"" + lineOf(found->second) + '"';
    }
    return name;
}

}  // namespace

void Unattended::take(const ScreenNews& news) {
    const auto isMeant = [&](const ScreenView& view) { return view.name() == news.screen; };
    switch (news.kind) {
        case ScreenNews::Kind::opened: return open(news);
        case ScreenNews::Kind::changed:
            if (const auto view = std::ranges::find_if(open_, isMeant); view != open_.end())
                view->change(news.parameters);
            return;
        case ScreenNews::Kind::closed:
        case ScreenNews::Kind::settled: std::erase_if(open_, isMeant); return;
        case ScreenNews::Kind::waiting: return bringOn();
        case ScreenNews::Kind::highlighted:
        case ScreenNews::Kind::cancelled: return;
    }
}

void Unattended::open(const ScreenNews& opening) {
    if (!opening.modal) {
        // A second one of the name shares the fate of the first.
        if (std::ranges::none_of(open_, [&](const ScreenView& view) { return view.name() == opening.screen; }))
            open_.emplace_back(opening);
    } else if (port_.isOpen(opening.screen)) {
        if (mode_ == WithoutOperator::defaults)
            takeDefault(opening);
        else
            fail(opening);
    }
}

void Unattended::fail(const ScreenNews& opening) {
    cancel(oneLine(opening.screen) + ": nobody is there to answer, the run is cancelled\n" + valuesOf(opening));
}

// One at a time, since the run may have a use for the others.
void Unattended::bringOn() {
    std::erase_if(open_, [this](const ScreenView& view) { return !port_.isOpen(view.name()); });
    if (hasFailed_)
        return;
    if (open_.empty()) {
        if (hasClosed_)
            cancel("the run waits, no screen is open any more and nobody is there, it is cancelled\n");
    } else if (mode_ == WithoutOperator::fail) {
        failForAll();
    } else {
        const ScreenNews newest = open_.back().opening();
        open_.pop_back();
        hasClosed_ = true;
        takeDefault(newest);
    }
}

void Unattended::failForAll() {
    std::string lines;
    for (const ScreenView& view : open_)
        lines += oneLine(view.name()) + ": the run waits and nobody is there to close it or to set what it gives out, "
                                        "the run is cancelled\n" +
                 valuesOf(view.opening());
    cancel(lines);
}

void Unattended::cancel(const std::string& lines) {
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
    // Told ahead of the closing, with which the run may come to its end.
    const std::string name = called(opening, dialog.get());
    err_ << name + ": nobody is there, " + done + '\n' << std::flush;
    if (const auto refusal = port_.sendEvent(screenClosed(opening.screen)))
        err_ << name + ": can't be closed: " + oneLine(*refusal) + '\n' << std::flush;
}

}  // namespace velkotx::host
