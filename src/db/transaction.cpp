#include "db/transaction.h"

#include "base/failure.h"

namespace desk {

Transaction::~Transaction() {
    if (connection_ == nullptr) return;
    try {
        connection_->rollback();
    } catch (const RuntimeFailure&) {
        // The database has undone it itself, as it does when the connection breaks.
    }
}

void Transaction::commit() {
    connection_->commit();
    connection_ = nullptr;
}

}  // namespace desk
