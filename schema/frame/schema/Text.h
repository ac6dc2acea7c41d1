// Texts of a document as the parser holds them, turned into strings, numbers and dates without a locale.
#pragma once

#include <schema/Runtime.h>

#include <memory>
#include <string>

namespace schema {

// A text that can't be read as a value of its attribute's type, such as "abc" for an integer.
class InvalidValue : public Exception {
public:
    InvalidValue(std::string text, std::string typeName);
    ~InvalidValue() throw() override;
    const char* what() const throw() override;

protected:
    void print(std::ostream& out) const override;

private:
    std::string text_;
    std::string typeName_;
};

// The parser's UTF-16 as UTF-8; plain ASCII takes the short way.
std::string narrow(const char16_t* text);

// XML Schema boolean, long and double with white space around them. Throw InvalidValue.
template <typename T>
T readNumber(const char16_t* text);
template <>
bool readNumber<bool>(const char16_t* text);
template <>
long long readNumber<long long>(const char16_t* text);
template <>
double readNumber<double>(const char16_t* text);

// XML Schema dateTime. Throws InvalidValue.
std::unique_ptr<date_time> readDateTime(const std::string& text);
// XML Schema hexBinary. Throws InvalidValue.
std::unique_ptr<hex_binary> readHexBinary(const std::string& text);

// An attribute's object of a string type.
template <typename T>
std::unique_ptr<T> readObject(const char16_t* text, const DomElement& element, flags f, container* owner) {
    return std::make_unique<T>(narrow(text), &element, f, owner);
}
template <>
std::unique_ptr<date_time> readObject<date_time>(const char16_t*, const DomElement&, flags, container*);
template <>
std::unique_ptr<hex_binary> readObject<hex_binary>(const char16_t*, const DomElement&, flags, container*);

}  // namespace schema
