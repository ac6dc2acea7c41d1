// The forms in which the pages of velkotx are written.
#pragma once

#include <iosfwd>
#include <string>

namespace velkotx::host {

struct CommandPage;

// A manual page of section 1, for man and troff.
void writeManPage(const CommandPage& program, const std::string& version, std::ostream& out);

// Completions, each to be loaded by its shell from its usual folder.
void writeBashCompletion(const CommandPage& program, std::ostream& out);
void writeZshCompletion(const CommandPage& program, std::ostream& out);
void writeFishCompletion(const CommandPage& program, std::ostream& out);

}  // namespace velkotx::host
