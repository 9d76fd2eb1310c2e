#include "db/embedded/store.h"

#include "base/failure.h"

namespace desk::embedded {

Writing::Writing(Store& store) : store_(store), own_(!store.sqlite().inTransaction()) {
    store.stopReading();
    if (own_) store.sqlite().run("BEGIN IMMEDIATE");
}

Writing::~Writing() {
    // A failure may have undone the transaction already.
    if (!own_ || !store_.sqlite().inTransaction()) return;
    try {
        store_.sqlite().run("ROLLBACK");
    } catch (const RuntimeFailure&) {
        // The failure that led here is the one to be told.
    }
}

void Writing::commit() {
    if (!own_) return;
    store_.sqlite().run("COMMIT");
    own_ = false;
    store_.statistics().followWrites();
}

}  // namespace desk::embedded
