// Names the document that was running when the process crashes or hangs.
#pragma once

#include <string>

namespace documents {

// Installs the handlers, once.
void watchForCrashes();

// The document that runs from now on, which gets two minutes, and more under a sanitizer. An empty name for none.
void nowRunning(const std::string& name);

}  // namespace documents
