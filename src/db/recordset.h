#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "db/connection.h"
#include "db/cursor.h"
#include "db/value.h"

namespace desk {

/// The rows that a statement returns. A new recordset stands on the first row, or at the end if there is
/// none.
///
/// A forward-only one that stands before its last row may hold off other seats that want to write; a write on
/// its own connection is always possible.
///
///     for (auto& row : Recordset(connection, "Select * From YZ_区域设置"))
///         区域.addItem(row["区域名称"].text());
class Recordset {
  public:
    /// One field of the current row. Assignment is for updatable recordsets.
    class Field {
      public:
        Value value() const;
        bool isNull() const;
        std::string text() const;
        /// The text without a copy, empty for NULL; of a text column only. Valid until the recordset moves or
        /// the connection writes.
        std::string_view view() const;
        std::int64_t integer() const { return value().integer(); }
        double number() const { return value().number(); }
        bool flag() const { return value().flag(); }
        DateTime moment() const { return value().moment(); }

        /// Holds the new value until update(), through the column's own kind: text that is no number or no
        /// date is refused there with -2147217913. Fails with 3021 when there is no current row.
        void operator=(const Value& value);

      private:
        friend class Recordset;
        Field(Recordset& rows, int column) : rows_(rows), column_(column) {}
        Recordset& rows_;
        int column_;
    };

    /// Runs `statement`. Fails as Connection::execute does.
    Recordset(Connection& connection, std::string_view statement, Rows mode = Rows::forwardOnly);
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    bool atEnd() const;
    /// Goes to the next row; at the end all that the statement held is released.
    void moveNext();

    int columnCount() const;
    const std::string& columnName(int column) const;
    /// The position of the first column of that name, case ignored. Fails with 3265 when there is none.
    int column(std::string_view name) const;

    /// The field of that name; using it fails with 3021 when there is no current row.
    Field operator[](std::string_view name) { return {*this, column(name)}; }
    /// Fails with 3265 when there is no such column.
    Field operator[](int column) {
        columnName(column);
        return {*this, column};
    }

    /// The rows from the current one on, for a loop: the recordset itself, standing on each in turn.
    class Iterator;
    struct End {};
    Iterator begin();
    End end() const { return {}; }

    /// Starts a new row, all fields NULL until assigned. Updatable recordsets only.
    void addNew();
    /// Writes the assigned fields of the new or current row. Afterwards identities are readable, and the row
    /// is the current one. Fails with 3021 without a current row, with -2147217864 when the row has gone
    /// since it was read.
    void update();

  private:
    std::string statement_;  ///< that a failure names
    std::unique_ptr<Cursor> cursor_;
};

class Recordset::Iterator {
  public:
    explicit Iterator(Recordset& rows) : rows_(rows) {}
    Recordset& operator*() const { return rows_; }
    Iterator& operator++() {
        rows_.moveNext();
        return *this;
    }
    bool operator!=(End) const { return !rows_.atEnd(); }

  private:
    Recordset& rows_;
};

inline Recordset::Iterator Recordset::begin() {
    return Iterator(*this);
}

/// Whether `statement` returns a row. Nothing stays open.
bool anyRow(Connection& connection, std::string_view statement);

}  // namespace desk
