// The parts of the fault injection, each a few series.
#pragma once

#include "Series.h"

#include <string>
#include <vector>

namespace faults {

// Memory that refuses while this document, in either form, is loaded and the sequencer goes again.
std::vector<Series> loadingWithoutMemory(const std::string& document);
// The same while the document is saved.
std::vector<Series> savingWithoutMemory(const std::string& document);
// The same while its procedure main runs.
std::vector<Series> runningWithoutMemory(const std::string& document);
// A host object that throws at one of the messages of a run.
std::vector<Series> refusingHost(const std::string& document);
// A stream that breaks while the document is loaded and saved.
std::vector<Series> breakingStreams(const std::string& document);

}  // namespace faults
