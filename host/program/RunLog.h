// What a run logs.
#pragma once

#include <iosfwd>

namespace velkotx::host {

struct LogOptions;

// Sets the levels of the process and where its lines go. Throws UsageError.
void startLog(const LogOptions& options);

// Lets the lines that were logged get ahead of what is said next, as far as their reader takes them.
void letLogAhead();

// Says how many lines of a log file are lost, if any. Of standard error it says nothing: who lost lines there doesn't read.
void tellLostLines(const LogOptions& options, std::ostream& err);

}  // namespace velkotx::host
