// The declared data types of a document.
#include <OTXContext/OtxContext.h>
#include <Trace.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxString.h>

namespace otxns {

// Signatures may refer to each other in any order. One that asks for a name which isn't there yet fails in this pass
// and is tried again in the next; one that never succeeds is left out.
void OtxContext::processSignatures(const Signatures& document) {
    std::set<std::string> seen;
    bool changed = true;
    while (changed) {
        changed = false;
        for (const Signature& signature : document.signature()) {
            if (!signature.name().present() || !signature.realisation().present()) continue;
            const std::string& name = signature.name().get();
            if (seen.count(name) != 0) continue;
            try {
                const COtxValue value = signature.realisation()->eval(*this);
                OTX_TRACE(4, "Name: " << name << " Value: " << value);
                const std::lock_guard guard(documentLock);
                signatures.insert_or_assign(COtxString(name), value);
                seen.insert(name);
                changed = true;
            } catch (const COtxValue&) {
                // Swallowed on purpose, without a word.
            }
        }
    }
}

COtxValue OtxContext::GetDatatype(const std::string& name) const {
    const std::lock_guard guard(documentLock);
    const auto found = signatures.find(COtxString(name));
    if (found != signatures.end()) return found->second;
    throw COtxException(OTX::Exceptions_e::TypeMismatchException, "Datatype " + name + " not declared");
}

}  // namespace otxns
