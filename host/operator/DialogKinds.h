// The four dialogs, each made from its opening.
#pragma once

#include "operator/Dialog.h"

#include <memory>

namespace velkotx::host {

// YES, NO and CANCEL by their keys, as the type of the message allows; what only informs is taken note of, a YES.
std::unique_ptr<Dialog> makeConfirmDialog(const ScreenNews& opening);
// One of several options, counted from 1 for the operator and from 0 for the run.
std::unique_ptr<Dialog> makeChoiceDialog(const ScreenNews& opening);
// A text, which has to match the restriction as a whole, if there is one.
std::unique_ptr<Dialog> makeInputDialog(const ScreenNews& opening);
// The path of a document, to be taken note of.
std::unique_ptr<Dialog> makeDocumentDialog(const ScreenNews& opening);

}  // namespace velkotx::host
