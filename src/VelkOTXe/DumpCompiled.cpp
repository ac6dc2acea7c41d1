// Shows a compiled document to a person.
#include <schema/CompiledForm.h>
#include <schema/FieldPrinter.h>
#include <schema/core.h>
#include <velkotx/DumpCompiled.h>

#include <stdexcept>
#include <string>

namespace velkotx {

void DumpCompiled(std::istream& file, std::ostream& out) {
    const std::vector<char> bytes = otxns::contentOf(file);
    schema::FieldPrinter printer(bytes, out);
    try {
        otxns::readCompiled(bytes, &printer);
    } catch (const std::exception& failure) {
        throw std::runtime_error(std::string("VelkOTX CDR Parsing Exception: ") + failure.what());
    }
    printer.rest();
}

}  // namespace velkotx
