// The Group node: runs all of its valid realisations, where an Action runs only the first. This is meant.
#include <OTXCoreActions/Validity.h>

namespace otxns {

template <>
void Group_impl<Group_base>::exec(OtxContext& context) const {
    for (const GroupRealisation& candidate : realisation())
        if (isValid(candidate, context)) candidate.exec(context);
}

}  // namespace otxns
