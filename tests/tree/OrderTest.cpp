// The order of the virtual operations of the roots of behaviour, behind those of every object of the tree.
#include <schema/core.h>

#include "Slots.h"

namespace {

using namespace otxns;

TEST(Order, OfTheOperationsThatTheRootsAdd) {
    expectOrder(3, &schema::type::_clone,
                static_cast<void (schema::type::*)(schema::container*)>(&schema::type::_container));
    expectOrder(5, &Node::exec, &Node::type);
    expectOrder(5, &Term::eval);
    expectOrder(5, &DataType::eval);
    expectOrder(5, &Declaration::declare);
    expectOrder(5, &Variable::write, &Variable::read);
    expectOrder(5, &Path::write, &Path::read, &Path::steps);
    expectOrder(5, &ActionRealisation::exec, &ActionRealisation::type);
    expectOrder(5, &ProcedureRealisation::exec);
}

}  // namespace
