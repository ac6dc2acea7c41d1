// Fills the table of procedures from a document.
#include <OTXContext/ProcedureTable.h>

#include <algorithm>

namespace otxns {

void ProcedureTable::add(const std::shared_ptr<const Otx>& document) {
    documents_.push_back(document);
    if (!document->procedures().present()) return;
    for (const Procedure& procedure : document->procedures()->procedure()) {
        if (!procedure.name().present() || !procedure.realisation().present()) continue;
        const Name& name = procedure.name()->key();
        index_.assign(name, {&name, &procedure.realisation().get()});
    }
}

bool ProcedureTable::holds(const std::shared_ptr<const Otx>& document) const {
    return std::find(documents_.begin(), documents_.end(), document) != documents_.end();
}

const ProcedureTable::Entry* ProcedureTable::find(const std::string& name) const {
    const auto key = Name::find(name);
    return key ? find(*key) : nullptr;
}

}  // namespace otxns
