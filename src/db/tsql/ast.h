#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "db/tsql/type.h"
#include "schema/catalogue.h"

/// Statements as the parser reads them. What stands under "resolved" is empty until the resolver has filled
/// it.
namespace desk::tsql {

/// A conversion that a value needs where it stands.
enum class Conversion {
    none,
    toNumber,  ///< of a text, which fails when it is no number
    toInteger,
    toFlag,
    toMoney,
    toText,
    toMoment,  ///< of a day: midnight, unless it keeps a time
    toDate,    ///< of a moment; midnight is left out
};

enum class Form {
    column,
    text,
    number,
    null,
    compare,  ///< `text` is the operator
    both,     ///< all parts
    either,   ///< any part
    negation,
    isNull,
    inList,   ///< the first part in the others
    inQuery,  ///< the first part in `query`
    like,
    between,
    add,
    subtract,
    minus,
    choice,     ///< Case When: condition and value by turns; a last odd part is the Else
    length,     ///< Len(x)
    day112,     ///< Convert(Char(8), x, 112)
    aggregate,  ///< `text` is the function; no part is Count(*)
    single,  ///< the value that `query` gives, NULL without a row; no text has it, engines may put it there
};

struct Query;

struct Expression {
    Form form;
    std::string text{};       ///< a column's name, a literal, an operator or a function
    std::string qualifier{};  ///< the table or alias before a column's name
    bool negated = false;     ///< Not In, Is Not Null, Not Like, Not Between
    std::vector<Expression> parts{};
    std::shared_ptr<Query> query{};
    int depth = 1;  ///< of the tree below, this included

    // resolved
    Type type = Type::null;
    Conversion conversion = Conversion::none;
    const schema::Table* table = nullptr;    ///< of a column that is read from one of the catalogue's
    const schema::Column* column = nullptr;  ///< of the catalogue, from which the value comes as it stands
};

struct Output {
    bool all = false;         ///< `*`, or `qualifier.*`; the resolver puts the columns in its place
    std::string qualifier{};  ///< of a `*`
    std::optional<Expression> value{};
    std::string name{};  ///< the alias or the column's name; empty for an expression without either
    bool aliased = false;
};

/// A column that a source offers.
struct SourceColumn {
    std::string name{};
    Type type = Type::null;
    const schema::Table* table = nullptr;
    const schema::Column* column = nullptr;
};

enum class Join { first, comma, inner, left, right, full, cross };

struct Source {
    Join join = Join::first;
    std::string table{};             ///< empty for a derived table
    std::shared_ptr<Query> query{};  ///< a derived table
    std::string alias{};
    std::optional<Expression> on{};

    // resolved
    std::vector<SourceColumn> columns{};

    const std::string& name() const { return alias.empty() ? table : alias; }
};

struct Order {
    Expression value;
    bool descending = false;

    // resolved
    std::size_t ordinal = 0;  ///< from 1: the output that is meant; 0 for a value of its own
};

struct Query {
    bool distinct = false;
    std::optional<std::int64_t> top;
    std::vector<Output> outputs;
    std::vector<Source> sources;
    std::optional<Expression> where;
    std::vector<Expression> groupBy;
    std::optional<Expression> having;
    std::vector<Order> orderBy;
};

struct Assignment {
    std::string column;
    Expression value;
};

struct Update {
    std::optional<std::int64_t> top;  ///< of any rows that meet the condition, no more than so many
    Source target;
    std::vector<Assignment> assignments;
    std::optional<Expression> where;
};

struct Delete {
    Source target;
    std::optional<Expression> where;
};

struct Insert {
    Source target;
    std::vector<std::string> columns;
    std::vector<std::vector<Expression>> rows;  ///< none: one of default values
};

using Statement = std::variant<Query, Update, Delete, Insert>;

}  // namespace desk::tsql
