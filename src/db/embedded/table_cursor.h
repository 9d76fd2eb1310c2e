#pragma once

#include "db/embedded/store.h"
#include "db/embedded/translation.h"
#include "db/updatable_cursor.h"

namespace desk::embedded {

/// Rows of a table in the file, written by their numbers there.
class TableCursor : public UpdatableCursor {
  public:
    TableCursor(std::shared_ptr<Store> store, const Translation& translation);

  protected:
    void insertRow(Row& row, const std::vector<int>& changed) override;
    void updateRow(const Row& row, const HeldRow& before, const std::vector<int>& changed) override;

  private:
    /// A statement that writes these columns, made once for all rows that are written alike.
    struct Writer {
        SqliteStatement statement;
        std::vector<int> columns;
    };

    std::string insertSql(const std::vector<int>& changed) const;
    std::string updateSql(const std::vector<int>& changed) const;

    std::shared_ptr<Store> store_;
    Writer inserter_;
    Writer updater_;
};

}  // namespace desk::embedded
