// Where the lines of the log go by themselves: standard error or a file.
#pragma once

#include <otx/Export.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Hvt {

// A file that lines are added to; a last line there that has no end gets one. With `limit` bytes above 0 it is moved to "PATH.1" before it would grow beyond them, what
// was "PATH.1" to "PATH.2" and so on; `kept` of these are kept, and none means that the file is emptied instead. A line
// longer than the limit has a file to itself. A file with a limit belongs to one process.
struct LogFile {
    std::string path;
    std::uint64_t limit = 0;
    unsigned kept = 0;
};

// The output of the process, standard error in the beginning. Whoever logs puts the line in a queue and goes on, without
// waiting for the file or the terminal; a thread of the library, which begins with the first line, writes them.
//
// When the queue is full its oldest lines are lost, so that the newest stay, which tell how things came to an end. A line
// "(N lines of the log are lost)" stands in their place. A line that can't be written, as on a full disk, is lost whole and
// the next one is tried. A file that can't be moved goes on growing, and the move is tried again later.
//
// Lines of level 0 and what stands before them are on the disk (fdatasync) before the thread waits for more. At the exit of
// the process the queue is written out, for as long as this gets on. A process that is killed loses what is queued. One that
// was forked, and hasn't begun another program, must not log: it doesn't have the thread.
//
// Any thread. With a sink of CLog set, nothing comes here.
class OTX_API LogOutput {
public:
    // The queue holds so many lines, and so many bytes.
    static constexpr std::size_t queueLines = 65536;
    static constexpr std::size_t queueBytes = std::size_t{32} << 20;

    // Lines from now on go there; those before go where they were to go. ToFile throws std::runtime_error, the path and the
    // system's reason, for a file that can't be opened, and then changes nothing.
    static void ToStandardError();
    static void ToFile(const LogFile& file);

    // Waits until all lines that were logged before are written or lost, but no longer than that; tells whether they are.
    static bool Flush(std::chrono::milliseconds atMost) noexcept;

    // How many lines were lost since the process began.
    static std::uint64_t LostLines() noexcept;
};

}  // namespace Hvt
