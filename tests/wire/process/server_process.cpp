#include "wire/process/server_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

extern char** environ;

namespace desk::wire {

namespace {

using Pipe = std::array<int, 2>;

Pipe newPipe() {
    Pipe ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    return ends;
}

pid_t start(int input, int output) {
    posix_spawn_file_actions_t ends;
    posix_spawn_file_actions_init(&ends);
    posix_spawn_file_actions_adddup2(&ends, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&ends, output, STDOUT_FILENO);
    std::string name = WIRE_SERVER_PROGRAM;
    const std::array<char*, 2> arguments = {name.data(), nullptr};
    pid_t process = -1;
    const int error = posix_spawn(&process, name.c_str(), &ends, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&ends);
    if (error != 0) throw std::runtime_error("the server does not start");
    return process;
}

std::string firstLine(int output) {
    std::string line;
    for (char each = 0; ::read(output, &each, 1) == 1 && each != '\n';) line += each;
    return line;
}

}  // namespace

ServerProcess::ServerProcess() {
    const Pipe input = newPipe();
    const Pipe output = newPipe();
    process_ = start(input[0], output[1]);
    input_ = input[1];
    ::close(input[0]);
    ::close(output[1]);
    dataSource_ = firstLine(output[0]);
    ::close(output[0]);
    if (dataSource_.empty()) throw std::runtime_error("the server tells no address");
}

ServerProcess::~ServerProcess() {
    ::close(input_);
    int status = -1;
    ::waitpid(process_, &status, 0);
    if (status == 0) return;
    std::fputs("the server of the tests failed\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

}  // namespace desk::wire
