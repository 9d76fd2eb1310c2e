#pragma once

#include "db/odbc/server.h"
#include "db/updatable_cursor.h"

namespace desk::odbc {

/// Rows of a table on a server, found again by what the catalogue says keeps them apart.
class ServerCursor : public UpdatableCursor {
  public:
    /// `answer` gives the rows; they are of `table`, null when they cannot be changed.
    ServerCursor(std::shared_ptr<Server> server, OdbcStatement answer, const schema::Table* table);

  protected:
    void insertRow(Row& row, const std::vector<int>& changed) override;
    void updateRow(const Row& row, const HeldRow& before, const std::vector<int>& changed) override;

  private:
    ServerCursor(std::shared_ptr<Server> server, OdbcStatement& answer, const schema::Table* table,
                 std::vector<ResultColumn> columns);

    std::string insertText(const Row& row, const std::vector<int>& changed) const;
    std::string addressOf(const HeldRow& before, const schema::RowAddress& address) const;
    int positionOf(const schema::Column& wanted) const;

    std::shared_ptr<Server> server_;
};

}  // namespace desk::odbc
