#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "db/connection.h"
#include "wire/server/table_columns.h"
#include "wire/server/tokens.h"

namespace desk::wire {

/// The tables of a database that was made by statements over the wire, of those that the catalogue has.
using MadeTables = std::set<std::string, std::less<>>;

/// What a server says of the columns of a table, before it does so.
using Describing = std::function<void(std::string_view table, std::vector<DescribedColumn>& columns)>;

/// What one client's batches do to a database, by the embedded engine.
class Dialog {
  public:
    /// `made`, if any, are the only tables that are there.
    Dialog(Connection database, std::shared_ptr<MadeTables> made, Describing describing)
        : database_(std::move(database)), made_(std::move(made)), describing_(std::move(describing)) {}

    /// Runs a batch of statements with semicolons between them, as far as the first that fails.
    void answer(std::string_view batch, Tokens& out);
    /// Ends an open transaction as a server does with that of a seat that loses to another.
    void undo();

  private:
    void statement(std::string_view text, Tokens& out);
    bool ownWords(std::string_view text, Tokens& out);
    void define(std::string_view text, Tokens& out);
    void describe(const std::string& table, Tokens& out);
    void begin(Tokens& out);
    void end(bool committed, Tokens& out);
    void query(std::string_view text, Tokens& out);
    void write(std::string_view text, Tokens& out);
    long insert(std::string_view text, const schema::Table& target);
    void requireMade(std::string_view table) const;

    Connection database_;
    std::shared_ptr<MadeTables> made_;
    Describing describing_;
    MadeTables madeBefore_;  ///< the open transaction
    bool inTransaction_ = false;
    Value lastIdentity_;
};

}  // namespace desk::wire
