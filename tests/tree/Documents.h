// Small documents for the tests of the tree.
#pragma once

#include <schema/core.h>

#include <functional>
#include <memory>
#include <string>

namespace tree_tests {

// A document with one procedure of the given parts.
std::string document(const std::string& flow, const std::string& beforeFlow = "");
// As many groups, each in the flow of the one around it.
std::string nestedGroups(std::size_t count);

std::unique_ptr<otxns::Otx> load(const std::string& text);
// The printed form of the failure to load; empty if it loads.
std::string failure(const std::string& text);

// The flow of the document's first procedure.
const otxns::Flow& flowOf(const otxns::Otx& document);
// The first realisation of an action's node.
const otxns::ActionRealisation& realisationOf(const otxns::Node& action);

std::string compiled(const otxns::Otx& document);
std::unique_ptr<otxns::Otx> fromCompiled(const std::string& bytes);

// Runs the work on a thread with that stack and waits for it.
// The thread sanitizer's record of open calls is too small for the deepest recursions.
#if defined(__SANITIZE_THREAD__)
constexpr bool deepCallsFit = false;
#else
constexpr bool deepCallsFit = true;
#endif

void onThread(std::size_t stackSize, const std::function<void()>& work);

}  // namespace tree_tests
