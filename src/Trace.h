// The trace of the sequencer: one guarded line of subsystem 3.
#pragma once

#include <otx/log/CLog.h>
#include <otx/log/Names.h>

#include <atomic>
#include <ostream>
#include <string>

// Writes the line `thread:file:line:function:message` when the level is on; else costs one load and one compare, and
// evaluates nothing of the message. The message is a chain of insertions: OTX_TRACE(4, "Enter: " << name);
// Never raises. Levels: 0 failures, 1 things ignored, 2 commands, 3 milestones, 4 detail.
#define OTX_TRACE(level, message) OTX_TRACE_PLACE(level, message, __PRETTY_FUNCTION__)

// The same in a function that does the work of the one which the line is to name, in the compiler's form, such as
// "otxns::Handler_impl<otxns::Handler_base>::exec".
#define OTX_TRACE_AS(function, level, message) OTX_TRACE_PLACE(level, message, function)

#define OTX_TRACE_PLACE(level, message, function)                                                                    \
    do {                                                                                                             \
        if (otxns::Trace::isOn(level)) [[unlikely]] {                                                                \
            static constinit otxns::Trace::Place otxTracePlace(__FILE__, __LINE__, function);                        \
            otxns::Trace::write(level, otxTracePlace, [&](std::ostream& otxTraceLine) { otxTraceLine << message; }); \
        }                                                                                                            \
    } while (false)

namespace otxns {

class Trace {
public:
    // One log statement of the source. Its function name is made when the first line is written.
    class Place {
    public:
        constexpr Place(const char* file, unsigned line, const char* function)
            : file_(file), line_(line), rawFunction_(function) {}

        void writePrefix(std::ostream& out);

    private:
        const std::string& function();

        const char* file_;
        unsigned line_;
        const char* rawFunction_;
        std::atomic<const std::string*> function_{nullptr};
    };

    static bool isOn(int level) noexcept { return Hvt::CLog::ReportingLevel(subsystem) >= level; }

    template <class Message>
    static void write(int level, Place& place, const Message& message) {
        deliver(level, place, [](std::ostream& out, const void* text) { (*static_cast<const Message*>(text))(out); },
                &message);
    }

private:
    static constexpr Hvt::TLogSubSys subsystem = 3;
    using Insert = void (*)(std::ostream& out, const void* message);

    [[gnu::cold]] static void deliver(int level, Place& place, Insert insert, const void* message);
};

}  // namespace otxns
