// The manual page.
#include "pages/CommandPage.h"
#include "pages/Writers.h"

#include <ostream>
#include <sstream>

namespace velkotx::host {

namespace {

// Text that troff shows letter by letter.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char letter : text) {
        if (letter == '\\')
            result += "\\e";
        else if (letter == '-')
            result += "\\-";
        else if (letter == '\'')
            result += "\\(aq";
        else
            result += letter;
    }
    return result.starts_with('.') ? "\\&" + result : result;
}

std::string bold(const std::string& text) {
    return "\\fB" + escaped(text) + "\\fR";
}

std::string italic(const std::string& text) {
    return "\\fI" + escaped(text) + "\\fR";
}

// The help ends without a full stop where it is one sentence only.
std::string sentence(const std::string& help) {
    return escaped(help.ends_with('.') ? help : help + ".");
}

std::string synopsis(const CommandPage& page) {
    std::string text = bold(joined(page.path, " "));
    if (!page.commands.empty())
        return text + " " + italic("COMMAND");
    text += " [" + italic("OPTIONS") + "]";
    for (const OptionPage& option : page.options)
        if (option.isRequired)
            text += " " + bold(option.names.front()) + " " + italic(option.placeholder);
    for (const PositionalPage& positional : page.positionals)
        text += positional.isRequired ? " " + italic(positional.name) : " [" + italic(positional.name) + "]";
    return text;
}

// Paragraphs as they are; indented lines keep their breaks.
void writeFooter(const std::string& footer, std::ostream& out) {
    std::istringstream lines(footer);
    bool isIndented = false;
    out << ".PP\n";
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(' ') != isIndented) {
            isIndented = !isIndented;
            out << (isIndented ? ".RS\n.nf\n" : ".fi\n.RE\n");
        }
        const std::size_t begin = line.find_first_not_of(' ');
        if (begin == std::string::npos)
            out << ".PP\n";
        else
            out << escaped(line.substr(isIndented ? 2 : 0)) << '\n';
    }
    if (isIndented)
        out << ".fi\n.RE\n";
}

void writeOption(const OptionPage& option, std::ostream& out) {
    out << ".TP\n";
    for (std::size_t index = 0; index < option.names.size(); ++index)
        out << (index == 0 ? "" : ", ") << bold(option.names[index]);
    if (!option.placeholder.empty())
        out << ' ' << italic(option.placeholder);
    out << '\n' << sentence(option.help) << (option.isRepeatable ? " May be given several times." : "") << '\n';
}

void writeArguments(const CommandPage& page, std::ostream& out) {
    for (const PositionalPage& positional : page.positionals)
        out << ".TP\n" << italic(positional.name) << '\n' << sentence(positional.help) << '\n';
    for (const OptionPage& option : page.options)
        writeOption(option, out);
}

void writeCommand(const CommandPage& page, std::ostream& out) {
    out << ".SS " << escaped(joined(page.path, " ")) << '\n'
        << sentence(page.help) << "\n.PP\n"
        << synopsis(page) << '\n';
    writeArguments(page, out);
    if (!page.footer.empty())
        writeFooter(page.footer, out);
}

}  // namespace

void writeManPage(const CommandPage& program, const std::string& version, std::ostream& out) {
    const std::string& name = program.path.front();
    out << ".TH " << name << " 1 \"\" \"VelkOTX " << escaped(version) << "\" \"User Commands\"\n.SH NAME\n"
        << escaped(name) << " \\- run OTX test sequences\n.SH SYNOPSIS\n";
    const auto pages = allPages(program);
    for (const CommandPage* page : pages)
        if (page->commands.empty())
            out << synopsis(*page) << "\n.br\n";
    out << ".SH DESCRIPTION\n" << sentence(program.help) << '\n';
    writeFooter(program.footer, out);
    out << ".SH OPTIONS\n";
    writeArguments(program, out);
    out << ".SH COMMANDS\n";
    for (const CommandPage* page : pages)
        if (page->commands.empty())
            writeCommand(*page, out);
}

}  // namespace velkotx::host
