// A dialog of a run as an operator at a terminal meets it.
#pragma once

#include "operator/ScreenNews.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velkotx::host {

// Asks, reads the answer and knows the default. No thread may change it; it isn't bound to any.
class Dialog {
public:
    virtual ~Dialog() = default;
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    // What a typed line comes to: a complaint, if it isn't an answer; else the dialog closes with that result, if any.
    struct Answer {
        std::string complaint;
        std::optional<COtxValue> result;
    };

    // Heading, message and what else there is to see, each line fit for a terminal.
    std::vector<std::string> lines() const;
    virtual std::string prompt() const = 0;
    virtual Answer read(const std::string& line) const = 0;
    // The default that the dialog brings; none where it brings none, or one that can't be an answer.
    virtual std::optional<COtxValue> preset() const { return {}; }

    // Whether the sequence may have no use for the result, which the run then refuses.
    virtual bool mayGoUnheard() const { return false; }

    const std::string& name() const { return opening_.screen; }
    // As it was opened.
    const ScreenNews& opening() const { return opening_; }

protected:
    explicit Dialog(ScreenNews opening) : opening_(std::move(opening)) {}

    // "Choice" and the like, ahead of the title.
    virtual std::string heading() const = 0;
    virtual void describe(std::vector<std::string>& lines) const = 0;

    const COtxValue* find(const std::string& parameter) const;
    // A parameter on as many lines as it has.
    void append(std::vector<std::string>& lines, const std::string& parameter) const;

private:
    const ScreenNews opening_;
};

// The dialog that was opened; null for any other screen.
std::unique_ptr<Dialog> makeDialog(const ScreenNews& opening);

}  // namespace velkotx::host
