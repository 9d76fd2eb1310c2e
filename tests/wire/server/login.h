#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace desk::wire {

/// What a client says of itself.
struct Login {
    std::uint32_t version = 0;
    std::string user;
    std::string password;
    std::string program;
    std::string database;
};

/// Reads a login message, the password made legible. Fails with Malformed.
Login readLogin(std::string_view message);

/// What a client and a server say of encryption before the login.
enum class Encryption : unsigned char { forLogin = 0, on = 1, notSupported = 2, required = 3 };

/// What the client's first message asks for.
Encryption readPrelogin(std::string_view message);
/// The answer to it.
std::string preloginAnswer(Encryption encryption);

}  // namespace desk::wire
