// velkotx-pages FOLDER: writes the manual page and the completions of velkotx from its table of options.
#include "pages/CommandPage.h"
#include "pages/Writers.h"
#include "program/CommandTable.h"

#include <velkotx/Sequencer.h>

#include <CLI/CLI.hpp>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <stdexcept>

namespace {

void write(const std::filesystem::path& file, const std::function<void(std::ostream&)>& writer) {
    std::ofstream out(file);
    writer(out);
    if (!out.flush())
        throw std::runtime_error(file.string() + " can't be written");
}

}  // namespace

int main(int argc, char** argv) try {
    using namespace velkotx::host;
    if (argc != 2)
        throw std::runtime_error("usage: velkotx-pages FOLDER");
    CLI::App program;
    CommandOptions options;
    addCommands(program, options);
    const CommandPage page = describe(program);
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    write(folder / "velkotx.1", [&](std::ostream& out) { writeManPage(page, velkotx::GetComponentVersion(), out); });
    write(folder / "velkotx.bash", [&](std::ostream& out) { writeBashCompletion(page, out); });
    write(folder / "_velkotx", [&](std::ostream& out) { writeZshCompletion(page, out); });
    write(folder / "velkotx.fish", [&](std::ostream& out) { writeFishCompletion(page, out); });
    return 0;
} catch (const std::exception& failure) {
    std::cerr << "velkotx-pages: " << failure.what() << '\n';
    return 1;
}
