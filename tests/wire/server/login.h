#pragma once

#include <string>
#include <string_view>

namespace desk::wire {

/// What a client says of itself.
struct Login {
    std::string user;
    std::string password;
    std::string database;
};

/// Reads a login message, the password made legible.
Login readLogin(std::string_view message);

/// The answer to the message before the login: whether all that follows is encrypted, or nothing.
std::string preloginAnswer(bool encrypts);

}  // namespace desk::wire
