// Reading a variable by its name and, if there is one, a path.
#pragma once

#include <OTXContext/OtxContext.h>

namespace otxns {

inline COtxValue readVariable(OtxContext& context, const Name& name, const schema::optional<Path>& path) {
    return path.present() ? path->read(context, name) : context.Variables().Get(name);
}

// For the terms that read the variable named by `valueOf`.
template <class ValueTerm>
COtxValue valueOfVariable(const ValueTerm& term, OtxContext& context) {
    return readVariable(context, term.valueOf().key(), term.path());
}

}  // namespace otxns
