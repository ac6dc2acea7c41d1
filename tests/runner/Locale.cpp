// A host's locale that would spoil numbers, if anything asked it.
#include "Locale.h"

#include <clocale>
#include <locale>
#include <string>

namespace documents {

namespace {

class CommaNumbers : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
    std::string do_truename() const override { return "wahr"; }
    std::string do_falsename() const override { return "falsch"; }
};

}  // namespace

void installCommaLocale() {
    std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "de_DE"}) {
        if (std::setlocale(LC_ALL, name) != nullptr) return;
    }
}

}  // namespace documents
