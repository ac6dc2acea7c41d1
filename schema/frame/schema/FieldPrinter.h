// Prints a compiled file field by field: offset, bytes, member, value.
#pragma once

#include <schema/FieldListener.h>

#include <iosfwd>
#include <span>
#include <string>
#include <vector>

namespace schema {

// A line a field, indented by the objects around it; padding, and the objects as they begin, have lines of their own.
class FieldPrinter : public FieldListener {
public:
    // The bytes are those of the file that is being read; both must outlive the printer.
    FieldPrinter(std::span<const char> bytes, std::ostream& out) : bytes_(bytes), out_(out) {}

    void member(std::u16string_view name) override;
    void enter(const RegisteredType& entered) override;
    void leave() override;
    void field(const Field& field) override;

    // What stands behind the last field.
    void rest();

private:
    std::string indent() const;
    void line(std::size_t begin, std::size_t end, const std::string& text);

    std::span<const char> bytes_;
    std::ostream& out_;
    // The present member of each object that is open, the innermost last.
    std::vector<std::string> members_;
    std::size_t end_ = 0;
};

}  // namespace schema
