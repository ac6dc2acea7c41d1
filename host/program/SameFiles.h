// One file named for two things.
#pragma once

namespace velkotx::host {

struct RunOptions;
struct SetUpOptions;

// What a run writes would spoil what it reads, or writes elsewhere. Throws UsageError, with the two options, for a file to write
// that another option, or the document, names as well, in whatever words. Devices and pipes may be named as one likes. Ahead of
// everything that opens files.
void refuseSameFiles(const SetUpOptions& options);
void refuseSameFiles(const RunOptions& options);

}  // namespace velkotx::host
