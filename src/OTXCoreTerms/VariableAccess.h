// Reading and writing a variable by its name and, if there is one, a path.
#pragma once

#include <OTXContext/OtxContext.h>
#include <otx/value/COtxInt.h>

#include <utility>

namespace otxns {

inline COtxValue readVariable(OtxContext& context, const Name& name, const schema::optional<Path>& path) {
    return path.present() ? path->read(context, name) : context.Variables().Get(name);
}

// What Variable::write does, for a value that the caller gives away.
inline void assign(const Variable& variable, OtxContext& context, COtxValue value) {
    if (variable.path().present())
        variable.path()->write(context, variable.name().key(), value);
    else
        context.Variables().Set(variable.name().key(), std::move(value));
}

// The same for an Integer of that number.
inline void assignInteger(const Variable& variable, OtxContext& context, long long number) {
    if (variable.path().present())
        variable.path()->write(context, variable.name().key(), COtxInt(number));
    else
        context.Variables().SetInteger(variable.name().key(), number);
}

// For the terms that read the variable named by `valueOf`.
template <class ValueTerm>
COtxValue valueOfVariable(const ValueTerm& term, OtxContext& context) {
    return readVariable(context, term.valueOf().key(), term.path());
}

}  // namespace otxns
