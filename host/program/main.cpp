// velkotx: runs OTX test sequences from the command line.
#include "program/Program.h"

#include <csignal>
#include <iostream>

int main(int argc, char** argv) {
    // A reader that goes is a failure of writing, which the run is told.
    std::signal(SIGPIPE, SIG_IGN);
    return velkotx::host::runProgram(argc, argv, {std::cin, std::cout, std::cerr});
}
