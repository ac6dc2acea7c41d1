// Answers the dialogs of a run, in place of a person.
#include "Operator.h"

#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>

#include <map>
#include <string>
#include <utility>

namespace {

using Entries = std::map<const std::string, COtxValue>;

std::string text(const COtxValue& map, const std::string& key) {
    return OTX::GetOptionalParameter(map, key, COtxString(""), OTX::ValueType::String).String();
}

}  // namespace

Operator::Operator(TestRun& run, std::shared_ptr<Mailbox> mailbox, COtxConfirmationType::ConfirmationType answer,
                   std::ostream& out)
    : run_(run),
      mailbox_(std::move(mailbox)),
      answer_(answer),
      out_(out),
      thread_([this](const std::stop_token& stop) { work(stop); }) {}

void Operator::work(const std::stop_token& stop) {
    while (const auto message = mailbox_->take(stop)) answer(*message);
}

// Messages of other kinds are dropped: there may come more than a host knows.
void Operator::answer(const COtxValue& message) {
    if (text(message, "eventType") != "HMI-OpenScreen" || text(message, "screenName") != "ConfirmDialog") return;
    const COtxValue shown = OTX::GetParameter(message, "parameters", OTX::ValueType::Map);
    const COtxConfirmationType result(answer_);
    out_ << text(shown, "message") << ' ' << result << '\n';
    // The result first, the end of the dialog then.
    run_.send(COtxMap(Entries{{"eventType", COtxString("HMI-OutParameterValueChanged")},
                              {"screenName", COtxString("ConfirmDialog")},
                              {"parameters", COtxMap(Entries{{"result", result}})}}));
    run_.send(COtxMap(Entries{{"eventType", COtxString("HMI-ScreenClosed")}, {"screenName", COtxString("ConfirmDialog")}}));
}
