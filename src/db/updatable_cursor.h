#pragma once

#include "db/row_cursor.h"

namespace desk {

/// All rows of a statement in memory, and what is done to them until it is written. How it is written is the
/// engine's matter.
class UpdatableCursor : public RowCursor {
  public:
    /// `table` is the one whose rows these are; null when they cannot be changed.
    UpdatableCursor(std::vector<ResultColumn> columns, const schema::Table* table)
        : RowCursor(std::move(columns)), table_(table) {}

    bool atEnd() const override { return !adding_ && !onAdded_ && at_ >= rows_.size(); }
    void moveNext() override;

    void addNew() override;
    void set(int column, const Value& value) override;
    void update() override;

  protected:
    /// A row, and what the engine knows it by.
    struct Row {
        std::int64_t number = 0;  ///< for an engine that numbers its rows
        HeldRow fields;
    };

    const schema::Table* table() const { return table_; }
    /// Adds a row that was read.
    void hold(Row row) { rows_.push_back(std::move(row)); }

    /// Writes the fields of a new row that stand at the positions `changed`, and fills in what the database
    /// gives. Fails as Connection::execute does.
    virtual void insertRow(Row& row, const std::vector<int>& changed) = 0;
    /// Writes such fields of a row that was `before`. Fails with -2147217864 when the row has gone.
    virtual void updateRow(const Row& row, const HeldRow& before, const std::vector<int>& changed) = 0;

    bool heldNull(int column) const override {
        return current().fields[static_cast<std::size_t>(column)].isNull();
    }
    std::int64_t heldInteger(int column) const override { return integerIn(current().fields, column); }
    double heldNumber(int column) const override { return numberIn(current().fields, column); }
    std::string_view heldText(int column) const override { return textIn(current().fields, column); }

  private:
    const Row& current() const { return adding_ || onAdded_ ? added_ : rows_[at_]; }
    Row& current() { return adding_ || onAdded_ ? added_ : rows_[at_]; }
    void requireTable() const;

    const schema::Table* table_;
    std::vector<Row> rows_;
    std::size_t at_ = 0;
    Row added_;                 ///< the row that addNew() began
    bool adding_ = false;       ///< addNew() was called, update() not yet
    bool onAdded_ = false;      ///< the row last added is the current one
    std::vector<int> changed_;  ///< the columns assigned since, in their order
    HeldRow before_;            ///< the current row as it was before the first of them
};

}  // namespace desk
