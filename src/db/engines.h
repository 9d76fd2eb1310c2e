#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "db/connection_string.h"
#include "db/engine.h"
#include "db/upgrade.h"

namespace desk {

struct OpenedEngine {
    std::unique_ptr<Engine> engine;
    std::optional<Upgrade> upgrade{};  ///< what had to be done to the database first
};

/// Opens the database with the engine that its Data Source means. Fails as Connection::open does.
OpenedEngine openEngine(const ConnectionTarget& target, std::chrono::seconds timeout);

}  // namespace desk
