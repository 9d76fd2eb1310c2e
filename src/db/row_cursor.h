#pragma once

#include <cstdint>
#include <vector>

#include "db/cursor.h"
#include "db/result_column.h"

namespace desk {

/// A row in memory, each field as the engine holds it.
using HeldRow = std::vector<Value>;

/// What the cursors of all engines share: how the fields of a row as an engine holds it become values. Days
/// and moments are held as texts, see storage.h.
class RowCursor : public Cursor {
  public:
    explicit RowCursor(std::vector<ResultColumn> columns);

    Value value(int column) const override;
    bool isNull(int column) const override;
    std::string text(int column) const override;
    std::string_view view(int column) const override;

  protected:
    const std::vector<ResultColumn>& columns() const { return columns_; }
    const ResultColumn& column(int position) const { return columns_[static_cast<std::size_t>(position)]; }
    /// Fails with 3021 when there is no current row.
    void requireRow() const;

    // Fields of the current row as the engine holds them.
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

/// A copy of the row on which an engine's statement stands, whose column `first` is the first of `columns`.
template <class EngineStatement>
HeldRow heldRow(const EngineStatement& statement, const std::vector<ResultColumn>& columns, int first) {
    HeldRow row(columns.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
        const int position = static_cast<int>(i) + first;
        if (statement.isNull(position)) continue;
        if (columns[i].type == tsql::Type::integer)
            row[i] = statement.integer(position);
        else if (columns[i].type == tsql::Type::number)
            row[i] = statement.number(position);
        else
            row[i] = statement.text(position);
    }
    return row;
}

}  // namespace desk
