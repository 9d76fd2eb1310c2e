#include "wire/process/engine_choice.h"

#include <fmt/format.h>

#include <cstdlib>
#include <string_view>

#include "wire/process/server_process.h"
#include "wire/server/server.h"

namespace desk {

namespace {

/// All tests of the process speak to one server; each connection gets a database of its own.
const wire::ServerProcess& sharedServer() {
    static const wire::ServerProcess server;
    return server;
}

}  // namespace

TestEngine testEngine() {
    const char* chosen = std::getenv("TENANT_TEST_ENGINE");
    return chosen != nullptr && std::string_view(chosen) == "server" ? TestEngine::server
                                                                     : TestEngine::embedded;
}

std::string testDataSource() {
    return testEngine() == TestEngine::server ? sharedServer().dataSource() : "(embedded)";
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
