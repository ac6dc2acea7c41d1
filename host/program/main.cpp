// velkotx: runs OTX test sequences from the command line.
#include "program/Program.h"

#include <iostream>

int main(int argc, char** argv) {
    return velkotx::host::runProgram(argc, argv, {std::cin, std::cout, std::cerr});
}
