// The Group node: runs all of its valid realisations, where an Action runs only the first. This is meant.
#include <OTXCoreActions/Statements.h>
#include <OTXCoreActions/Validity.h>

namespace otxns {

FlowExit run(const Group& group, OtxContext& context) {
    for (const GroupRealisation& candidate : group.realisation()) {
        if (!isValid(candidate, context)) continue;
        if (const FlowExit exit = run(candidate, context)) return exit;
    }
    return {};
}

template <>
void Group_impl<Group_base>::exec(OtxContext& context) const {
    run(*this, context).raise();
}

}  // namespace otxns
