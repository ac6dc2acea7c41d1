// The exception with which loading a document in XML fails.
#pragma once

#include <otx/Export.h>

#include <cstddef>
#include <stdexcept>
#include <string>

namespace velkotx {

// A document in XML that can't be loaded. what() is the prefix and the cause; this adds where in the text the cause lies,
// so that a host can print it the way its users' editors expect. May be copied and read on any thread.
class OTX_API DocumentException : public std::runtime_error {
public:
    DocumentException(const std::string& what, std::size_t line, std::size_t column,
                      const std::string& suggestion = {});
    DocumentException(const DocumentException&) = default;
    ~DocumentException() override;

    // From 1, counted from the XML declaration on; columns in UTF-16 units. For XML that isn't well formed, where the
    // parser noticed it, which stands in what() too; otherwise where the start tag of the element begins that is wrong:
    // with an unknown type, without a member, or in the place of one. Both are 0 where the place isn't known, such as in
    // a stream that can't be read twice.
    std::size_t line() const noexcept { return line_; }
    std::size_t column() const noexcept { return column_; }

    // For an unknown type, the known one that was perhaps meant, as UTF-8: "Assignment", or "namespace#name" of one in
    // another namespace. Empty where there is none. Lives as long as the exception.
    const char* suggestion() const noexcept { return suggestion_.c_str(); }

private:
    std::size_t line_;
    std::size_t column_;
    std::string suggestion_;
};

}  // namespace velkotx
