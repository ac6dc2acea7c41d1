// Makes and delivers the lines of the trace.
#include <Trace.h>
#include <Unwind.h>

#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstring>
#include <memory>
#include <string_view>

namespace otxns {

namespace {

// A number as text without the stream's locale.
class Digits {
public:
    Digits(unsigned long number, int base)
        : end_(std::to_chars(room_.data(), room_.data() + room_.size(), number, base).ptr) {}

    std::string_view text() const { return {room_.data(), static_cast<std::size_t>(end_ - room_.data())}; }

private:
    std::array<char, 24> room_;
    const char* end_;
};

const char* fileName(const char* path) {
    const char* const slash = std::strrchr(path, '\\');
    return slash != nullptr ? slash + 1 : path;
}

}  // namespace

const std::string& Trace::Place::function() {
    const std::string* known = function_.load(std::memory_order_acquire);
    if (known != nullptr) return *known;
    auto made = std::make_unique<const std::string>(Hvt::functionName(rawFunction_));
    if (function_.compare_exchange_strong(known, made.get(), std::memory_order_acq_rel)) known = made.release();
    return *known;
}

void Trace::Place::writePrefix(std::ostream& out) {
    const Digits thread(static_cast<unsigned long>(::syscall(SYS_gettid)), 16);
    const Digits line(line_, 10);
    out << thread.text() << ':' << fileName(file_) << ':' << line.text() << ':' << function() << ':';
}

void Trace::deliver(int level, Place& place, Insert insert, const void* message) {
    try {
        Hvt::CLog line(subsystem);
        std::ostream& out = line.Get(level, subsystem);
        place.writePrefix(out);
        insert(out, message);
    }
    OTX_PASS_FORCED_UNWIND
    catch (...) {
        // A line that can't be written is lost: the trace never disturbs the run.
    }
}

}  // namespace otxns
