#pragma once

#include <memory>
#include <string>
#include <string_view>

struct ssl_st;
struct ssl_ctx_st;

namespace desk::wire {

/// A certificate that the server has signed itself, and its key.
class Certificate {
  public:
    /// For a server at that address.
    explicit Certificate(const std::string& address);
    ~Certificate();
    Certificate(const Certificate&) = delete;
    Certificate& operator=(const Certificate&) = delete;

    /// As a file of trusted certificates has it.
    const std::string& pem() const { return pem_; }
    ssl_ctx_st* context() const { return context_; }

  private:
    ssl_ctx_st* context_;
    std::string pem_;
};

/// The server's end of an encrypted line, which knows nothing of sockets.
class SecureLayer {
  public:
    explicit SecureLayer(const Certificate& certificate);
    ~SecureLayer();
    SecureLayer(const SecureLayer&) = delete;
    SecureLayer& operator=(const SecureLayer&) = delete;

    /// Takes a part of the client's handshake; whether it is done with it. What is to be answered follows.
    bool shakeHands(std::string_view received);
    std::string takeHandshake();

    /// What `received` says, which may be less than a whole record.
    std::string opened(std::string_view received);
    std::string sealed(std::string_view bytes);

  private:
    ssl_st* ssl_;
};

}  // namespace desk::wire
