#include "wire/process/engine_choice.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "wire/server/server.h"

namespace desk {

namespace {

/// A database server in a process of its own, which serves any database file by its path and ends with this
/// one; all tests of the process speak to it, each connection with a database of its own.
///
/// A process that has a server inside must not be forked while the server works: what one of its threads
/// holds locked then, as the allocator, stays locked in the child for good.
class ServerProcess {
  public:
    ServerProcess() {
        auto folder = (std::filesystem::temp_directory_path() / "wire-XXXXXX").string();
        if (::mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
        const auto address = folder + "/address";
        ::mkfifo(address.c_str(), S_IRUSR | S_IWUSR);
        // It ends with its input, which no child of this process holds open.
        input_ = ::popen(fmt::format("exec '{}' > '{}'", WIRE_SERVER_PROGRAM, address).c_str(), "we");
        std::getline(std::ifstream(address), dataSource_);
        std::filesystem::remove_all(folder);
        if (dataSource_.empty()) throw std::runtime_error("the server tells no address");
    }
    /// Ends this process as failed where the server ended in any other way than it should.
    ~ServerProcess() {
        if (::pclose(input_) == 0) return;
        std::fputs("the server of the tests failed\n", stderr);
        std::_Exit(EXIT_FAILURE);
    }
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    /// As a connection string names it.
    const std::string& dataSource() const { return dataSource_; }

  private:
    std::FILE* input_ = nullptr;
    std::string dataSource_;
};

}  // namespace

TestEngine testEngine() {
    const char* chosen = std::getenv("TENANT_TEST_ENGINE");
    return chosen != nullptr && std::string_view(chosen) == "server" ? TestEngine::server
                                                                     : TestEngine::embedded;
}

std::string testDataSource() {
    if (testEngine() == TestEngine::embedded) return "(embedded)";
    static const ServerProcess shared;
    return shared.dataSource();
}

std::map<std::string, std::string, std::less<>> testCredentials() {
    const wire::Behaviour usual;
    return {{"UID", usual.user}, {"PWD", usual.password}};
}

std::string emptyTestDatabase() {
    return testDatabaseIn(":memory:");
}

std::string testDatabaseIn(const std::string& path) {
    auto credentials = testCredentials();
    return fmt::format("User ID={};Password={};Initial Catalog='{}';Data Source='{}'", credentials["UID"],
                       credentials["PWD"], path, testDataSource());
}

}  // namespace desk
