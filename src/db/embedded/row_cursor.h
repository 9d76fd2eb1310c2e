#pragma once

#include <cstdint>

#include "db/cursor.h"
#include "db/embedded/sqlite.h"
#include "db/embedded/translation.h"

namespace desk::embedded {

/// A row in memory, each field as it stands in the file.
using HeldRow = std::vector<Value>;

/// What both cursors share: how the fields of a row as the file holds it become values.
class RowCursor : public Cursor {
  public:
    explicit RowCursor(std::vector<ResultColumn> columns);

    Value value(int column) const override;
    bool isNull(int column) const override;
    std::string text(int column) const override;
    std::string_view view(int column) const override;

  protected:
    const ResultColumn& column(int position) const { return columns_[static_cast<std::size_t>(position)]; }
    /// Fails with 3021 when there is no current row.
    void requireRow() const;
    /// A copy of the row on which the statement stands, whose column `first` is the cursor's first.
    HeldRow heldRow(const SqliteStatement& statement, int first) const;

    // Fields of the current row as they stand in the file.
    virtual bool heldNull(int column) const = 0;
    virtual std::int64_t heldInteger(int column) const = 0;
    virtual double heldNumber(int column) const = 0;
    virtual std::string_view heldText(int column) const = 0;

  private:
    std::vector<ResultColumn> columns_;
};

std::int64_t integerIn(const HeldRow& row, int column);
double numberIn(const HeldRow& row, int column);
std::string_view textIn(const HeldRow& row, int column);

}  // namespace desk::embedded
