#include "db/embedded/renderer.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

#include "db/tsql/sql_failure.h"
#include "schema/definition.h"

namespace desk::embedded {

using namespace tsql;

namespace {

std::string quoted(std::string_view text, char quote) {
    std::string result(1, quote);
    for (const char c : text) {
        if (c == quote) result += c;
        result += c;
    }
    return result + quote;
}

std::string literal(std::string_view text) {
    if (text.find('\0') == std::string_view::npos) return quoted(text, '\'');
    // SQLite takes a statement's text up to a NUL only.
    std::string bytes;
    for (const char c : text) bytes += fmt::format("{:02x}", static_cast<unsigned char>(c));
    return fmt::format("CAST(x'{}' AS TEXT)", bytes);
}

std::string_view joinWords(Join join) {
    switch (join) {
        case Join::first:
            return "";
        case Join::comma:
        case Join::cross:
            return ",";  // SQLite's CROSS JOIN would fix the order in which the tables are read
        case Join::inner:
            return " JOIN ";
        case Join::left:
            return " LEFT JOIN ";
        case Join::right:
            return " RIGHT JOIN ";
        case Join::full:
            return " FULL JOIN ";
    }
    return "";
}

/// The operator of a sum or difference. Whether it joins texts is told by its parts: its own type may tell
/// already what it is converted to.
std::string_view operatorOf(const Expression& sum) {
    if (sum.form == Form::subtract) return " - ";
    const bool texts = std::all_of(sum.parts.begin(), sum.parts.end(), [](const Expression& part) {
        return part.type == Type::text || part.type == Type::null;
    });
    return texts ? "||" : "+";
}

/// Whether the left part of a sum can stand in it without braces of its own.
bool goesOn(const Expression& left, const Expression& sum) {
    const bool isSum = left.form == Form::add || left.form == Form::subtract;
    return isSum && left.conversion == Conversion::none &&
           (operatorOf(left) == "||") == (operatorOf(sum) == "||");
}

/// Whether a text carries the collation by itself: a column does, what is made of it does not.
bool hasCollation(const Expression& value) {
    return value.form == Form::column && value.type == Type::text && value.conversion == Conversion::none;
}

/// SQLite would take everything before the comma into the join.
void refuseOuterJoinBehindComma(const std::vector<Source>& sources) {
    bool afterComma = false;
    for (const auto& source : sources) {
        afterComma = afterComma || source.join == Join::comma;
        if (afterComma && (source.join == Join::right || source.join == Join::full))
            wrongStatement("逗号之后不支持 RIGHT JOIN 和 FULL JOIN。");
    }
}

/// The column of the file that is read: SQLite sees no key behind a column that is generated as a copy of it.
std::string_view readColumn(const Expression& column) {
    const bool isCopy = column.table != nullptr && !column.column->copyOf.empty();
    return isCopy ? column.column->copyOf : std::string_view(column.text);
}

class Renderer {
  public:
    explicit Renderer(RowNumbers rowNumbers) : rowNumbers_(rowNumbers) {}

    std::string operator()(const Query& query) const { return select(query, rowNumbers_, Outermost::yes); }

    std::string operator()(const Update& update) const {
        std::string sql = fmt::format("UPDATE {} SET ", quotedName(update.target.table));
        for (std::size_t i = 0; i < update.assignments.size(); ++i) {
            const auto& assignment = update.assignments[i];
            sql += fmt::format("{}{}={}", i == 0 ? "" : ",", quotedName(assignment.column),
                               any(assignment.value));
        }
        if (!update.top) return sql + where(update.where);
        return sql + fmt::format(" WHERE rowid IN (SELECT rowid FROM {}{} LIMIT {})",
                                 quotedName(update.target.table), where(update.where), *update.top);
    }

    std::string operator()(const Delete& deletion) const {
        return fmt::format("DELETE FROM {}", quotedName(deletion.target.table)) + where(deletion.where);
    }

    std::string operator()(const Insert& insert) const {
        if (insert.rows.empty())
            return fmt::format("INSERT INTO {} DEFAULT VALUES", quotedName(insert.target.table));
        std::string columns;
        for (const auto& column : insert.columns)
            columns += (columns.empty() ? "" : ",") + quotedName(column);
        std::string rows;
        for (const auto& row : insert.rows)
            rows += fmt::format("{}({})", rows.empty() ? "" : ",", list(row, 0));
        return fmt::format("INSERT INTO {} ({}) VALUES {}", quotedName(insert.target.table), columns, rows);
    }

  private:
    enum class Outermost { yes, no };

    std::string select(const Query& query, RowNumbers rowNumbers, Outermost outermost) const {
        std::string sql = query.distinct ? "SELECT DISTINCT " : "SELECT ";
        if (rowNumbers == RowNumbers::first) sql += quotedName(query.sources.front().name()) + ".rowid,";
        // A text that is made, not stored, gets the collation where it is to be compared later.
        const bool compared = query.distinct || outermost == Outermost::no;
        for (std::size_t i = 0; i < query.outputs.size(); ++i) {
            const auto& output = query.outputs[i];
            if (i != 0) sql += ',';
            sql += compared ? collated(*output.value) : any(*output.value);
            if (outermost == Outermost::no && !output.name.empty()) sql += " AS " + quotedName(output.name);
        }
        if (!query.sources.empty()) sql += " FROM ";
        refuseOuterJoinBehindComma(query.sources);
        for (const auto& source : query.sources) appendSource(sql, source);
        sql += where(query.where);
        for (std::size_t i = 0; i < query.groupBy.size(); ++i)
            sql += (i == 0 ? " GROUP BY " : ",") + collated(query.groupBy[i]);
        if (query.having) sql += " HAVING " + any(*query.having);
        for (std::size_t i = 0; i < query.orderBy.size(); ++i) {
            const auto& item = query.orderBy[i];
            sql += (i == 0 ? " ORDER BY " : ",") + collated(item.value) + (item.descending ? " DESC" : "");
        }
        if (query.top) sql += fmt::format(" LIMIT {}", *query.top);
        return sql;
    }

    void appendSource(std::string& sql, const Source& source) const {
        sql += joinWords(source.join);
        if (source.query)
            sql += '(' + select(*source.query, RowNumbers::without, Outermost::no) + ')';
        else
            sql += quotedName(source.table);
        if (!source.alias.empty()) sql += " AS " + quotedName(source.alias);
        if (source.on) sql += " ON " + any(*source.on);
    }

    std::string where(const std::optional<Expression>& condition) const {
        return condition ? " WHERE " + any(*condition) : std::string();
    }

    std::string list(const std::vector<Expression>& values, std::size_t from) const {
        std::string sql;
        for (std::size_t i = from; i < values.size(); ++i) sql += (i == from ? "" : ",") + any(values[i]);
        return sql;
    }

    /// A value that compares by the collation if it is a text.
    std::string collated(const Expression& value) const {
        auto sql = any(value);
        if (value.type == Type::text && !hasCollation(value))
            sql += fmt::format(" COLLATE {}", schema::collationName);
        return sql;
    }

    std::string any(const Expression& expression) const {
        auto sql = plain(expression);
        switch (expression.conversion) {
            case Conversion::none:
                return sql;
            case Conversion::toNumber:
                return fmt::format("{}({})", numberFunction, sql);
            case Conversion::toInteger:
                return fmt::format("CAST({} AS INTEGER)", sql);
            case Conversion::toFlag:
                return fmt::format("(({})<>0)", sql);
            case Conversion::toMoney:
                return fmt::format("round({},4)", sql);
            case Conversion::toText:
                return fmt::format("CAST({} AS TEXT)", sql);
            case Conversion::toMoment:
                return fmt::format("substr({}||' 00:00:00',1,19)", sql);
            case Conversion::toDate:
                return fmt::format("replace({},' 00:00:00','')", sql);
        }
        return sql;
    }

    std::string plain(const Expression& expression) const {
        const auto& parts = expression.parts;
        const auto part = [&](std::size_t i) { return any(parts[i]); };
        const std::string_view negation = expression.negated ? "NOT " : "";
        switch (expression.form) {
            case Form::column:
                return quotedName(expression.qualifier) + '.' + quotedName(readColumn(expression));
            case Form::text:
                return literal(expression.text);
            case Form::number:
                return expression.text;
            case Form::null:
                return "NULL";
            case Form::compare:
                return comparison(expression);
            case Form::both:
                return chain(parts, " AND ");
            case Form::either:
                return chain(parts, " OR ");
            case Form::negation:
                return fmt::format("(NOT {})", part(0));
            case Form::isNull:
                return fmt::format("({} IS {}NULL)", part(0), negation);
            case Form::inList:
                return fmt::format("({} {}IN ({}))", collated(parts[0]), negation, list(parts, 1));
            case Form::inQuery:
                return fmt::format("({} {}IN ({}))", collated(parts[0]), negation,
                                   select(*expression.query, RowNumbers::without, Outermost::no));
            case Form::like:
                return fmt::format("({}{}({},{}))", negation, likeFunction, part(0), part(1));
            case Form::between:
                return fmt::format("({} {}BETWEEN {} AND {})", collated(parts[0]), negation, part(1),
                                   part(2));
            case Form::add:
            case Form::subtract:
                return '(' + terms(expression) + ')';
            case Form::minus:
                return fmt::format("(- {})", part(0));
            case Form::choice:
                return choice(expression);
            case Form::length:
                return schema::sqliteLength(part(0));
            case Form::day112:
                return fmt::format("replace(substr({},1,10),'-','')", part(0));
            case Form::aggregate:
                return aggregate(expression);
            case Form::single:
                return '(' + select(*expression.query, RowNumbers::without, Outermost::no) + ')';
        }
        return {};
    }

    /// All parts in one pair of braces: SQLite bears no deep nesting of braces. Since it bears no long chain
    /// either, a long one is a chain of chains.
    std::string chain(std::span<const Expression> parts, std::string_view word) const {
        constexpr std::size_t longest = 200;
        std::size_t each = 1;
        while (each * longest < parts.size()) each *= longest;
        std::string sql = "(";
        for (std::size_t from = 0; from < parts.size(); from += each) {
            const auto part = parts.subspan(from, std::min(each, parts.size() - from));
            if (from != 0) sql += word;
            sql += part.size() == 1 ? any(part.front()) : chain(part, word);
        }
        return sql + ')';
    }

    std::string terms(const Expression& sum) const {
        const auto& left = sum.parts[0];
        return fmt::format("{}{}{}", goesOn(left, sum) ? terms(left) : any(left), operatorOf(sum),
                           any(sum.parts[1]));
    }

    std::string comparison(const Expression& test) const {
        const auto& left = test.parts[0];
        const auto& right = test.parts[1];
        return fmt::format("({}{}{})", hasCollation(right) ? any(left) : collated(left), test.text,
                           any(right));
    }

    std::string choice(const Expression& choice) const {
        std::string sql = "CASE";
        const auto& parts = choice.parts;
        for (std::size_t i = 0; i + 1 < parts.size(); i += 2)
            sql += fmt::format(" WHEN {} THEN {}", any(parts[i]), any(parts[i + 1]));
        if (parts.size() % 2 == 1) sql += " ELSE " + any(parts.back());
        return sql + " END";
    }

    std::string aggregate(const Expression& call) const {
        if (call.parts.empty()) return "COUNT(*)";
        const auto sql = fmt::format("{}({})", call.text, collated(call.parts.front()));
        return call.text == "AVG" && call.parts.front().type == Type::integer
                   ? fmt::format("CAST({} AS INTEGER)", sql)
                   : sql;
    }

    RowNumbers rowNumbers_;
};

}  // namespace

std::string quotedName(std::string_view name) {
    return quoted(name, '"');
}

std::string render(const Statement& statement, RowNumbers rowNumbers) {
    return std::visit(Renderer(rowNumbers), statement);
}

}  // namespace desk::embedded
