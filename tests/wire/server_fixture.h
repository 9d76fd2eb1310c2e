#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "wire/server/server.h"

namespace desk::wire {

/// A server with the database "office", whose files go with it.
class ServedOffice : public testing::Test {
  protected:
    ServedOffice() { server.createDatabase("office"); }
    ~ServedOffice() override { std::filesystem::remove_all(folder); }

    static std::string newFolder() {
        auto pattern = (std::filesystem::temp_directory_path() / "wire-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        return pattern;
    }

    std::string folder = newFolder();
    Server server{folder};
};

}  // namespace desk::wire
