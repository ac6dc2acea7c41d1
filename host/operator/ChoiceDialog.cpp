// The dialog that asks for one of several options.
#include "operator/DialogKinds.h"

#include "operator/TypedText.h"
#include "text/ValueText.h"

#include <otx/value/COtxInt.h>

namespace velkotx::host {

namespace {

class ChoiceDialog : public Dialog {
public:
    explicit ChoiceDialog(const ScreenNews& opening) : Dialog(opening) {
        const COtxValue* const options = find("options");
        if (options != nullptr && options->Type() == OTX::ValueType::List)
            options_ = options->List();
        const COtxValue* const chosen = find("default");
        if (chosen != nullptr && chosen->Type() == OTX::ValueType::Integer && isIndex(chosen->Int()))
            default_ = chosen->Int();  // a negative one marks nothing
    }

    std::string prompt() const override {
        return default_ ? "Number [" + std::to_string(*default_ + 1) + "]: " : "Number: ";
    }

    Answer read(const std::string& line) const override {
        const std::string word = lowerCaseWord(line);
        if (options_.empty())
            return {"there is nothing to choose from, Ctrl-D closes it", {}};
        if (word.empty() && default_)
            return {{}, COtxInt(*default_)};
        const std::optional<long long> number = wholeNumber(word);
        if (!number || *number < 1 || !isIndex(*number - 1))
            return {"a number from 1 to " + std::to_string(options_.size()) + " is needed", {}};
        return {{}, COtxInt(*number - 1)};
    }

    std::optional<COtxValue> preset() const override {
        if (!default_)
            return {};
        return COtxInt(*default_);
    }

private:
    bool isIndex(long long number) const {
        return number >= 0 && static_cast<unsigned long long>(number) < options_.size();
    }

    std::string heading() const override { return "Choice"; }

    void describe(std::vector<std::string>& lines) const override {
        const std::size_t width = std::to_string(options_.size()).size();
        long long index = 0;
        for (const COtxValue& option : options_) {
            const bool isDefault = default_ == index;
            const std::string number = std::to_string(++index);
            lines.push_back((isDefault ? "* " : "  ") + std::string(width - number.size(), ' ') + number + "  " + lineOf(option) +
                            (isDefault ? " (default)" : ""));
        }
    }

    std::vector<COtxValue> options_;
    std::optional<long long> default_;
};

}  // namespace

std::unique_ptr<Dialog> makeChoiceDialog(const ScreenNews& opening) {
    return std::make_unique<ChoiceDialog>(opening);
}

}  // namespace velkotx::host
