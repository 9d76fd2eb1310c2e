#include <cstdio>
#include <exception>
#include <string>

#include "wire/server/server.h"

/// Serves the databases in a folder until its input ends; the first line that it prints is its address.
int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: test_wire_server FOLDER\n", stderr);
        return 2;
    }
    try {
        const desk::wire::Server server(argv[1]);
        std::printf("%s\n", server.dataSource().c_str());
        std::fflush(stdout);
        while (std::getchar() != EOF) {
        }
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
