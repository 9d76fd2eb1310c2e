#include "db/embedded/forward_cursor.h"

#include <utility>

#include "base/failure.h"

namespace desk::embedded {

namespace {

[[noreturn]] void notUpdatable() {
    throw RuntimeFailure(failure::updateNotSupported,
                         "当前记录集不支持更新。这可能是提供程序的限制，也可能是选定锁定类型的限制。");
}

}  // namespace

ForwardCursor::ForwardCursor(std::shared_ptr<Store> store, Translation translation)
    : RowCursor(std::move(translation.columns)),
      store_(std::move(store)),
      statement_(store_->sqlite().prepare(translation.sql)) {
    step();
    if (!live_) return;
    kept_.push_back(heldRow(statement_, 0));
    step();
    if (live_) store_->started(*this);
}

ForwardCursor::~ForwardCursor() {
    store_->ended(*this);
}

void ForwardCursor::step() {
    live_ = false;
    try {
        live_ = statement_.step();
    } catch (const RuntimeFailure&) {
        end();
        throw;
    }
    if (!live_) end();
}

void ForwardCursor::end() {
    statement_.close();
    store_->ended(*this);
}

void ForwardCursor::moveNext() {
    requireRow();
    if (!kept_.empty()) {
        kept_.pop_front();
        if (kept_.empty() && failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
        return;
    }
    step();
}

void ForwardCursor::keepRest() try {
    while (live_) {
        kept_.push_back(heldRow(statement_, 0));
        step();
    }
} catch (const RuntimeFailure&) {
    failure_ = std::current_exception();
}

bool ForwardCursor::heldNull(int column) const {
    return kept_.empty() ? statement_.isNull(column)
                         : kept_.front()[static_cast<std::size_t>(column)].isNull();
}
std::int64_t ForwardCursor::heldInteger(int column) const {
    return kept_.empty() ? statement_.integer(column) : integerIn(kept_.front(), column);
}
double ForwardCursor::heldNumber(int column) const {
    return kept_.empty() ? statement_.number(column) : numberIn(kept_.front(), column);
}
std::string_view ForwardCursor::heldText(int column) const {
    return kept_.empty() ? statement_.text(column) : textIn(kept_.front(), column);
}

void ForwardCursor::addNew() {
    notUpdatable();
}
void ForwardCursor::set(int, const Value&) {
    notUpdatable();
}
void ForwardCursor::update() {
    notUpdatable();
}

}  // namespace desk::embedded
