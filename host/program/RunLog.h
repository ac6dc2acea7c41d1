// What a run logs.
#pragma once

namespace velkotx::host {

struct LogOptions;

// Sets the levels of the process and where its lines go. Throws UsageError.
void startLog(const LogOptions& options);

// Lets the lines of a run get ahead of what is said of its end, as far as their reader takes them.
void finishLog();

}  // namespace velkotx::host
