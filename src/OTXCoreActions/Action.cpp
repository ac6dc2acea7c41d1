// The Action node: runs its first valid realisation, and nothing if there is none.
#include <OTXCoreActions/Validity.h>

namespace otxns {

template <>
void Action_impl<Action_base>::exec(OtxContext& context) const {
    for (const ActionRealisation& candidate : realisation())
        if (isValid(candidate, context)) return candidate.exec(context);
}

// Outside of a run no variable tells which realisation is valid; the first one stands for the action.
template <>
std::string Action_impl<Action_base>::type() const {
    return realisation().empty() ? "Null action" : realisation()[0].type();
}

}  // namespace otxns
