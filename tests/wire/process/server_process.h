#pragma once

#include <sys/types.h>

#include <string>

namespace desk::wire {

/// A database server in a process of its own, which serves any database file by its path and ends with this
/// one.
///
/// A process that has a server inside must not be forked while the server works: what one of its threads
/// holds locked then, as the allocator, stays locked in the child for good.
class ServerProcess {
  public:
    /// Fails with std::runtime_error where the server does not start.
    ServerProcess();
    /// Ends this process as failed where the server ended in any other way than it should.
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    /// As a connection string names it.
    const std::string& dataSource() const { return dataSource_; }

  private:
    int input_ = -1;
    pid_t process_ = -1;
    std::string dataSource_;
};

}  // namespace desk::wire
