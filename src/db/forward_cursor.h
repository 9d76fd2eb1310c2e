#pragma once

#include <deque>
#include <exception>
#include <memory>
#include <utility>

#include "base/failure.h"
#include "db/readers.h"
#include "db/row_cursor.h"

namespace desk {

/// Rows seen once, in the order in which the engine finds them.
///
/// It is one row ahead of its reader: a statement of one row has ended when the reader looks at it, and the
/// connection is free however long the row is looked at.
///
/// EngineStatement has step(), whether there is a further row, close(), and isNull(), integer(), number() and
/// text() of the row on which it stands.
template <class EngineStatement>
class ForwardCursor final : public RowCursor, public Streaming {
  public:
    /// `readers` is the engine's connection; it is kept as long as the cursor.
    ForwardCursor(std::shared_ptr<Readers> readers, EngineStatement statement,
                  std::vector<ResultColumn> columns)
        : RowCursor(std::move(columns)), readers_(std::move(readers)), statement_(std::move(statement)) {
        step();
        if (!live_) return;
        kept_.push_back(heldRow(statement_, this->columns(), 0));
        step();
        if (live_) readers_->started(*this);
    }
    ~ForwardCursor() override { readers_->ended(*this); }
    ForwardCursor(const ForwardCursor&) = delete;
    ForwardCursor& operator=(const ForwardCursor&) = delete;

    bool atEnd() const override { return kept_.empty() && !live_; }

    void moveNext() override {
        requireRow();
        if (kept_.empty()) return step();
        kept_.pop_front();
        if (kept_.empty() && failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
    }

    void keepRest() override {
        try {
            while (live_) {
                kept_.push_back(heldRow(statement_, columns(), 0));
                step();
            }
        } catch (const RuntimeFailure&) {
            failure_ = std::current_exception();
        }
    }

    void addNew() override { notUpdatable(); }
    void set(int, const Value&) override { notUpdatable(); }
    void update() override { notUpdatable(); }

  protected:
    bool heldNull(int column) const override {
        return kept_.empty() ? statement_.isNull(column)
                             : kept_.front()[static_cast<std::size_t>(column)].isNull();
    }
    std::int64_t heldInteger(int column) const override {
        return kept_.empty() ? statement_.integer(column) : integerIn(kept_.front(), column);
    }
    double heldNumber(int column) const override {
        return kept_.empty() ? statement_.number(column) : numberIn(kept_.front(), column);
    }
    std::string_view heldText(int column) const override {
        return kept_.empty() ? statement_.text(column) : textIn(kept_.front(), column);
    }

  private:
    [[noreturn]] static void notUpdatable() {
        throw RuntimeFailure(failure::updateNotSupported,
                             "当前记录集不支持更新。这可能是提供程序的限制，也可能是选定锁定类型的限制。");
    }

    void step() {
        live_ = false;
        try {
            live_ = statement_.step();
        } catch (const RuntimeFailure&) {
            end();
            throw;
        }
        if (!live_) end();
    }

    void end() {
        statement_.close();
        readers_->ended(*this);
    }

    std::shared_ptr<Readers> readers_;
    EngineStatement statement_;
    /// Rows read ahead, the current one first. When it is empty the statement's own row is the current one.
    std::deque<HeldRow> kept_;
    bool live_ = false;           ///< the statement stands on a row that has not been passed yet
    std::exception_ptr failure_;  ///< what stands behind the kept rows, when keeping them has failed
};

}  // namespace desk
