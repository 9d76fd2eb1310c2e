#pragma once

#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace desk::wire {

/// Tells which port an instance of a server has, as the browser service of a machine with several of them
/// does: on port 1434 of `address`, until its end. It says nothing to those who ask for another instance.
class Browser {
  public:
    /// Fails with std::system_error where the port of that address is taken.
    Browser(const std::string& address, std::string instance, int port);
    ~Browser();
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;

    /// The instances that were asked for.
    std::vector<std::string> asked() const;

  private:
    void listen(const std::string& answer);

    std::string instance_;
    int socket_;
    mutable std::mutex mutex_;
    std::vector<std::string> asked_;
    std::thread listening_;
};

}  // namespace desk::wire
