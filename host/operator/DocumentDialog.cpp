// The dialog that shows a document.
#include "operator/DialogKinds.h"

#include "text/ValueText.h"

namespace velkotx::host {

namespace {

class DocumentDialog : public Dialog {
public:
    explicit DocumentDialog(const ScreenNews& opening) : Dialog(opening) {}

    std::string prompt() const override { return "Enter goes on: "; }
    Answer read(const std::string&) const override { return {}; }

private:
    std::string heading() const override { return "Document"; }

    void describe(std::vector<std::string>& lines) const override {
        if (const COtxValue* const document = find("document"))
            lines.push_back("Document: " + lineOf(*document));
    }
};

}  // namespace

std::unique_ptr<Dialog> makeDocumentDialog(const ScreenNews& opening) {
    return std::make_unique<DocumentDialog>(opening);
}

}  // namespace velkotx::host
