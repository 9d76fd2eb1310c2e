#include "admin/password.h"

#include <fmt/format.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace desk::admin {

namespace {

/// While it lives the terminal does not show what is typed.
class Unseen {
  public:
    Unseen() {
        ::tcgetattr(STDIN_FILENO, &before_);
        termios silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
    ~Unseen() { ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_); }
    Unseen(const Unseen&) = delete;
    Unseen& operator=(const Unseen&) = delete;

  private:
    termios before_{};
};

std::string lineOfInput() {
    std::string line;
    std::getline(std::cin, line);
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

/// The question goes to the errors, so that the output can be kept in a file.
std::string typedFor(const std::string& user) {
    std::string password;
    {
        const Unseen unseen;
        fmt::print(stderr, "用户 {} 的密码：", user);
        password = lineOfInput();
    }
    fmt::print(stderr, "\n");
    return password;
}

}  // namespace

std::string passwordOf(const Arguments& arguments) {
    const bool person = ::isatty(STDIN_FILENO) == 1;
    const auto user = arguments.option("user", "");
    const auto option = arguments.option("password");
    if (option && *option != "-") return *option;
    if (option) return person ? typedFor(user) : lineOfInput();
    if (user.empty()) return {};
    if (const char* kept = std::getenv("TENANT_DESK_PASSWORD")) return kept;
    return person ? typedFor(user) : std::string();
}

}  // namespace desk::admin
