#include <cstdio>
#include <exception>
#include <fstream>
#include <string>

#include "wire/server/server.h"

/// Serves the databases in a folder until its input ends, and puts its certificate there; without a folder
/// any file by its path. The first line that it prints is its address. Each further word is a database that
/// is made, without tables.
int main(int argc, char** argv) {
    try {
        const std::string folder = argc > 1 ? argv[1] : "";
        desk::wire::Server server(folder, {.encrypts = true});
        for (int i = 2; i < argc; ++i) server.createEmpty(argv[i]);
        if (!folder.empty()) std::ofstream(folder + "/certificate.pem") << server.certificate().pem();
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
