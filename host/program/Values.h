// The values that a run is given: in-arguments, context variables, translations.
#pragma once

#include <otx/value/COtxValue.h>

#include <iosfwd>
#include <string>
#include <vector>

namespace velkotx::host {

class Inputs;

// Reads a JSON object (plain or OTX form) from a file as a map with string keys; an empty one for an empty name. Throws
// UsageError, with the file's name, for a file that can't be read or holds anything else.
COtxValue readObject(Inputs& inputs, const std::string& file);

// The in-arguments of a run: those of the file, if there is one, then those of the command line, each NAME=VALUE with a
// VALUE that is JSON or else stands for itself; a later one replaces an earlier one of that name. One that only begins as JSON
// is a line on the stream. Throws UsageError as readObject does, and for one that isn't NAME=VALUE.
COtxValue readArguments(Inputs& inputs, const std::string& file, const std::vector<std::string>& commandLine,
                        std::ostream& err);

}  // namespace velkotx::host
