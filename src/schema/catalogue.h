#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace desk::schema {

/// What a column holds. Both engines are told in their own words by schema/definition.h.
enum class Kind {
    text,      ///< of textLength at most, compared by the collation
    longText,  ///< text of any length
    integer,   ///< 32 bits
    number,    ///< floating point
    money,     ///< four decimal places
    flag,      ///< 0 or 1
    date,      ///< a day; one that is told a time keeps it
    moment,    ///< a day and a time
    identity,  ///< an integer that the database gives
};

/// How many UTF-16 units a short text may have.
inline constexpr std::size_t textLength = 200;

struct Column {
    std::string_view name;
    Kind kind;
    bool required = false;      ///< NULL is refused
    std::string_view copyOf{};  ///< the column that this one always equals; such a column is never written
};

/// An index that statements of the system need. `columns` is in T-SQL terms, separated by commas; "len(x)"
/// stands for the length of x.
struct Index {
    std::string_view name;
    std::string_view columns;
    bool unique = false;
};

/// How a row that was read is found again on a server, which has no numbers of rows.
struct RowAddress {
    std::vector<const Column*> columns;  ///< compared with what was read
    bool unique;                         ///< otherwise the first row that compares equal is as good as any
};

struct Table {
    std::string_view name;
    std::vector<Column> columns;
    std::vector<Index> indexes;
    /// The columns that tell rows apart by their meaning, where there is no identity and no unique index:
    /// data of other modules, or an entry that was renamed to the name of another, may break it.
    std::string_view key{};

    /// The column of that name, ASCII case ignored; null if there is none.
    const Column* column(std::string_view columnName) const;
    /// The column that the database numbers; null if there is none.
    const Column* identity() const;
    /// By the identity, or by a unique index; where only the meaning keeps rows apart, by all that they hold.
    RowAddress address() const;
};

/// All tables that the system's statements name, its own ("YZ_…") first.
std::span<const Table> tables();

/// The table of that name, ASCII case ignored; null if there is none.
const Table* table(std::string_view name);

/// Whether two names of tables or columns are the same one: ASCII case does not count.
bool sameName(std::string_view a, std::string_view b);

}  // namespace desk::schema
