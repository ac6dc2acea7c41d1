// What a run logs.
#pragma once

namespace velkotx::host {

struct LogOptions;

// Sets the levels of the process and where its lines go. Throws UsageError.
void startLog(const LogOptions& options);

// Lets the lines that were logged get ahead of what is said next, as far as their reader takes them.
void letLogAhead();

}  // namespace velkotx::host
