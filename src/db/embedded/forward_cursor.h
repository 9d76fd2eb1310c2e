#pragma once

#include <deque>
#include <exception>

#include "db/embedded/row_cursor.h"
#include "db/embedded/store.h"

namespace desk::embedded {

/// Rows seen once, in the order in which the engine finds them.
///
/// It is one row ahead of its reader: a statement of one row has ended when the reader looks at it, and no
/// lock is held however long the row is looked at.
class ForwardCursor : public RowCursor, public Streaming {
  public:
    ForwardCursor(std::shared_ptr<Store> store, Translation translation);
    ~ForwardCursor() override;
    ForwardCursor(const ForwardCursor&) = delete;
    ForwardCursor& operator=(const ForwardCursor&) = delete;

    bool atEnd() const override { return kept_.empty() && !live_; }
    void moveNext() override;

    void addNew() override;
    void set(int column, const Value& value) override;
    void update() override;

    void keepRest() override;

  protected:
    bool heldNull(int column) const override;
    std::int64_t heldInteger(int column) const override;
    double heldNumber(int column) const override;
    std::string_view heldText(int column) const override;

  private:
    void step();
    void end();

    std::shared_ptr<Store> store_;
    SqliteStatement statement_;
    /// Rows read ahead, the current one first. When it is empty the statement's own row is the current one.
    std::deque<HeldRow> kept_;
    bool live_ = false;           ///< the statement stands on a row that has not been passed yet
    std::exception_ptr failure_;  ///< what stands behind the kept rows, when keeping them has failed
};

}  // namespace desk::embedded
