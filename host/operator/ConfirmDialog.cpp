// The dialog that asks for yes or no, or informs.
#include "operator/DialogKinds.h"

#include "operator/TypedText.h"

#include <otx/value/COtxConfirmationType.h>
#include <otx/value/COtxMessageType.h>
#include <otx/value/IString.h>

#include <array>
#include <string>

namespace velkotx::host {

namespace {

struct Style {
    const char* literal;
    const char* heading;
    const char* keys;  // "" where there is nothing to choose
};

// By the number of the message type.
constexpr std::array<Style, 5> styles{{{"INFO", "Information", ""},
                                       {"WARNING", "Warning", ""},
                                       {"ERROR", "Error", ""},
                                       {"YESNO_QUESTION", "Question", "yn"},
                                       {"YESNOCANCEL_QUESTION", "Question", "ync"}}};

const Style& styleOf(const COtxValue* messageType) {
    if (messageType != nullptr) {
        const COtxValue text = messageType->ToString();
        for (std::size_t number = 0; number < styles.size(); ++number) {
            const std::string& literal = text.String();
            if (literal == styles[number].literal || literal == std::to_string(number))
                return styles[number];
        }
    }
    return styles[0];
}

class ConfirmDialog : public Dialog {
public:
    explicit ConfirmDialog(const ScreenNews& opening) : Dialog(opening), style_(styleOf(find("messageType"))) {}

    std::string prompt() const override {
        switch (keys().size()) {
            case 2: return "y yes, n no: ";
            case 3: return "y yes, n no, c cancel: ";
            default: return "Enter goes on: ";
        }
    }

    bool mayGoUnheard() const override { return true; }

    Answer read(const std::string& line) const override {
        const std::string word = lowerCaseWord(line);
        if (keys().empty())
            return word.empty() ? confirmed(COtxConfirmationType::Yes) : complaint();
        for (const auto& [key, name, value] : answers)
            if (keys().find(key) != std::string::npos && (word == std::string(1, key) || word == name))
                return confirmed(value);
        return complaint();
    }

private:
    struct Known {
        char key;
        const char* name;
        COtxConfirmationType::ConfirmationType value;
    };
    static constexpr std::array<Known, 3> answers{{{'y', "yes", COtxConfirmationType::Yes},
                                                   {'n', "no", COtxConfirmationType::No},
                                                   {'c', "cancel", COtxConfirmationType::Cancel}}};

    static Answer confirmed(COtxConfirmationType::ConfirmationType value) {
        return {{}, COtxConfirmationType(value)};
    }
    Answer complaint() const {
        switch (keys().size()) {
            case 2: return {"y or n is needed", {}};
            case 3: return {"y, n or c is needed", {}};
            default: return {"nothing but Enter is needed", {}};
        }
    }

    std::string keys() const { return style_.keys; }
    std::string heading() const override { return style_.heading; }
    void describe(std::vector<std::string>&) const override {}

    const Style& style_;
};

}  // namespace

std::unique_ptr<Dialog> makeConfirmDialog(const ScreenNews& opening) {
    return std::make_unique<ConfirmDialog>(opening);
}

}  // namespace velkotx::host
