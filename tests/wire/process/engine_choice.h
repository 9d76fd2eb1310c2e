#pragma once

#include <map>
#include <string>

namespace desk {

/// Which engine the tests of this run work on: the embedded one, or with TENANT_TEST_ENGINE=server the one
/// for servers, which then speaks to a server in a process beside this one.
enum class TestEngine { embedded, server };
TestEngine testEngine();

/// The Data Source of that engine.
std::string testDataSource();
/// The settings "UID" and "PWD" that its server demands.
std::map<std::string, std::string, std::less<>> testCredentials();
/// The connection string of a new, empty database, which is there as long as its connection.
std::string emptyTestDatabase();
/// That of the database in a file, which has been made; seats of several processes may share it.
std::string testDatabaseIn(const std::string& path);

}  // namespace desk
