#include "db/embedded/store.h"

#include <utility>

#include "base/failure.h"

namespace desk::embedded {

void Store::stopReading() {
    const auto reading = std::exchange(streaming_, {});
    for (auto* cursor : reading) cursor->keepRest();
}

Writing::Writing(Store& store) : sqlite_(store.sqlite()), own_(!sqlite_.inTransaction()) {
    store.stopReading();
    if (own_) sqlite_.run("BEGIN IMMEDIATE");
}

Writing::~Writing() {
    // A failure may have undone the transaction already.
    if (!own_ || !sqlite_.inTransaction()) return;
    try {
        sqlite_.run("ROLLBACK");
    } catch (const RuntimeFailure&) {
        // The failure that led here is the one to be told.
    }
}

void Writing::commit() {
    if (!own_) return;
    sqlite_.run("COMMIT");
    own_ = false;
}

}  // namespace desk::embedded
