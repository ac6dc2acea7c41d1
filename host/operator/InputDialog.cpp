// The dialog that asks for a text.
#include "operator/DialogKinds.h"

#include "text/OneLine.h"
#include "text/ValueText.h"

#include <otx/value/COtxString.h>
#include <otx/value/IString.h>

namespace velkotx::host {

namespace {

class InputDialog : public Dialog {
public:
    explicit InputDialog(const ScreenNews& opening) : Dialog(opening) {}

    std::string prompt() const override {
        const COtxValue* const initial = find("initialValue");
        return initial != nullptr ? "Text [" + lineOf(*initial) + "]: " : "Text: ";
    }

    // An empty line is the initial value where there is one, and a pair of quotes the empty text; else an empty line is that.
    Answer read(const std::string& line) const override {
        const COtxValue* const initial = find("initialValue");
        COtxValue text = COtxString(line);
        if (initial != nullptr && line.empty())
            text = *initial;
        else if (initial != nullptr && line == "\"\"")
            text = COtxString();
        std::string complaint = complaintAbout(text);
        if (!complaint.empty())
            return {std::move(complaint), {}};
        return {{}, text};
    }

    std::optional<COtxValue> preset() const override {
        const COtxValue* const initial = find("initialValue");
        if (initial == nullptr || !complaintAbout(*initial).empty())
            return {};
        return *initial;
    }

private:
    std::string heading() const override { return "Input"; }

    void describe(std::vector<std::string>& lines) const override {
        append(lines, "instruction");
        if (const COtxValue* const restriction = find("restriction"))
            lines.push_back("Has to match: " + lineOf(*restriction));
    }

    // Empty for a text that will do.
    std::string complaintAbout(const COtxValue& text) const {
        const COtxValue* const restriction = find("restriction");
        if (restriction == nullptr)
            return {};
        try {
            const COtxValue asText = text.ToString();
            return asText.String().Match(*restriction).Bool() ? "" : "the text has to match " + lineOf(*restriction);
        } catch (const COtxValue& refusal) {
            return oneLine(refusal.what());
        }
    }
};

}  // namespace

std::unique_ptr<Dialog> makeInputDialog(const ScreenNews& opening) {
    return std::make_unique<InputDialog>(opening);
}

}  // namespace velkotx::host
