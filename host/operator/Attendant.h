// Who sees to the screens and dialogs of a run.
#pragma once

#include "operator/ScreenNews.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velkotx::host {

// Used on the operator's thread only. Throws nothing but the cancellation of the thread.
class Attendant {
public:
    virtual ~Attendant() = default;

    virtual void take(const ScreenNews& news) = 0;
    // Behind what was taken or obeyed: shows what there is to be seen of it. `typed` is what stands behind the prompt, and
    // stands there again behind a new one.
    virtual void settle([[maybe_unused]] const std::string& typed) {}
    // The run is over.
    virtual void finish() {}
    // Whether the run was cancelled because nobody was there.
    virtual bool hasFailed() const { return false; }

    // Of somebody who types.

    // What the next line would answer, a number that is used once; 0 while a line is for nothing.
    virtual std::size_t asks() const { return 0; }
    virtual void obey(const std::string&) {}
    // What was typed for something that doesn't stand there any more is dropped.
    virtual void drop() {}
    // No answer will be typed: the key that ends the input.
    virtual void closeWithoutAnswer() {}

    // Whether values have changed that are still shown as they were, and the showing of them.
    virtual bool isStale() const { return false; }
    virtual void refresh() {}

    // What is open, as if it were opened now: for who takes over.
    virtual std::vector<ScreenNews> openScreens() const { return {}; }
};

}  // namespace velkotx::host
