#pragma once

#include <string>

struct ssl_ctx_st;

namespace desk::wire {

/// A certificate that the server at 127.0.0.1 has signed itself, and its key.
class Certificate {
  public:
    Certificate();
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

}  // namespace desk::wire
