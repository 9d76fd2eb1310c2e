#pragma once

#include <string>
#include <vector>

#include "admin/arguments.h"
#include "db/connection.h"

namespace desk::admin {

/// The database that a command works on: a file, which is its first plain word, or one on a server, which
/// options name.
class Target {
  public:
    /// Reads the words of a command that takes a database and `plainCount` plain words behind it, named by
    /// `plainNames`, and the options `known`. Fails with UsageError as Arguments does.
    Target(const std::vector<std::string>& words, std::vector<std::string> known, std::size_t plainCount,
           std::string_view plainNames);

    bool onServer() const { return onServer_; }
    /// The file; empty on a server.
    const std::string& file() const { return file_; }
    /// As a person calls it.
    std::string shown() const;
    /// The plain word at that place behind the database.
    const std::string& plain(std::size_t place) const {
        return arguments_.plain(place + (onServer_ ? 0 : 1));
    }
    const Arguments& arguments() const { return arguments_; }

    /// Fails as Connection::open does.
    Connection open() const;

  private:
    Arguments arguments_;
    bool onServer_;
    std::string file_;
};

}  // namespace desk::admin
