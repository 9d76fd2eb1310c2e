#pragma once

#include "db/embedded/row_cursor.h"
#include "db/embedded/store.h"

namespace desk::embedded {

/// All rows of a statement in memory, with their numbers in the file, by which they are written.
class UpdatableCursor : public RowCursor {
  public:
    UpdatableCursor(std::shared_ptr<Store> store, Translation translation);

    bool atEnd() const override { return !adding_ && !onAdded_ && at_ >= rows_.size(); }
    void moveNext() override;

    void addNew() override;
    void set(int column, const Value& value) override;
    void update() override;

  protected:
    bool heldNull(int column) const override {
        return current().fields[static_cast<std::size_t>(column)].isNull();
    }
    std::int64_t heldInteger(int column) const override { return integerIn(current().fields, column); }
    double heldNumber(int column) const override { return numberIn(current().fields, column); }
    std::string_view heldText(int column) const override { return textIn(current().fields, column); }

  private:
    struct Row {
        std::int64_t number = 0;
        HeldRow fields;
    };

    /// A statement that writes these columns, made once for all rows that are written alike.
    struct Writer {
        SqliteStatement statement;
        std::vector<int> columns;
    };

    const Row& current() const { return adding_ || onAdded_ ? added_ : rows_[at_]; }
    Row& current() { return adding_ || onAdded_ ? added_ : rows_[at_]; }

    void read(const std::string& sql);
    void requireTable() const;
    void insertRow();
    void updateRow();
    std::string insertSql() const;
    std::string updateSql() const;
    /// Binds the changed fields, from 1 on.
    void bindChanged(SqliteStatement& statement) const;

    std::shared_ptr<Store> store_;
    const schema::Table* table_;
    std::vector<Row> rows_;
    std::size_t at_ = 0;
    Row added_;                 ///< the row that addNew() began
    bool adding_ = false;       ///< addNew() was called, update() not yet
    bool onAdded_ = false;      ///< the row last added is the current one
    std::vector<int> changed_;  ///< the columns assigned since, in their order
    Writer inserter_;
    Writer updater_;
};

}  // namespace desk::embedded
