// Reads and writes whole documents in the compiled form.
#pragma once

#include <iosfwd>
#include <memory>
#include <span>
#include <vector>

namespace schema {
class FieldListener;
}

namespace otxns {

class Otx;

// The whole of a stream in one piece of memory.
std::vector<char> contentOf(std::istream& file);

// Builds the tree from the bytes of a file.
// Throws the tree runtime's exceptions: ace_cdr_stream_extraction for bytes that don't hold a document, no_type_info,
// not_derived; NestedTooDeep. A listener sees each field as it is read.
std::unique_ptr<Otx> readCompiled(std::span<const char> bytes, schema::FieldListener* listener = nullptr);

// Writes the file and returns its size in bytes. Throws the tree runtime's ace_cdr_stream_insertion, also for a stream
// that fails, and NestedTooDeep.
std::size_t writeCompiled(const Otx& document, std::ostream& out);

}  // namespace otxns
