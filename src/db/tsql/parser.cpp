#include "db/tsql/parser.h"

#include <charconv>

#include "db/tsql/expression_parser.h"
#include "db/tsql/sql_failure.h"
#include "db/tsql/token_stream.h"

namespace desk::tsql {

namespace {

constexpr int deepestQuery = 20;

class Parser {
  public:
    explicit Parser(std::string_view statement)
        : tokens_(statement), expressions_(tokens_, [this] { return std::make_shared<Query>(query()); }) {}

    Statement statement() {
        Statement found = anyStatement();
        tokens_.takeSymbol(";");
        if (!tokens_.atEnd()) tokens_.fail();
        return found;
    }

  private:
    Statement anyStatement() {
        if (tokens_.isWord("SELECT")) return query();
        if (tokens_.takeWord("UPDATE")) return update();
        if (tokens_.takeWord("DELETE")) return deletion();
        if (tokens_.takeWord("INSERT")) return insert();
        tokens_.fail();
    }

    Query query() {
        if (++depth_ > deepestQuery) wrongStatement("语句嵌套过深。");
        Query query;
        tokens_.expectWord("SELECT");
        query.distinct = tokens_.takeWord("DISTINCT");
        if (!query.distinct) tokens_.takeWord("ALL");
        if (tokens_.takeWord("TOP")) query.top = top();
        do query.outputs.push_back(output());
        while (tokens_.takeSymbol(","));
        if (tokens_.takeWord("FROM")) query.sources = sources();
        query.where = where();
        if (tokens_.takeWords({"GROUP", "BY"})) query.groupBy = list();
        if (tokens_.takeWord("HAVING")) query.having = expressions_.expression();
        if (tokens_.takeWords({"ORDER", "BY"})) query.orderBy = order();
        --depth_;
        return query;
    }

    std::int64_t top() {
        const bool braced = tokens_.takeSymbol("(");
        if (tokens_.peek().kind != TokenKind::number) tokens_.fail();
        const auto text = tokens_.take().text;
        std::int64_t count = 0;
        const auto end = std::from_chars(text.data(), text.data() + text.size(), count);
        if (end.ec != std::errc{} || end.ptr != text.data() + text.size()) syntaxErrorNear(text);
        if (braced) tokens_.expectSymbol(")");
        return count;
    }

    Output output() {
        Output output;
        if (tokens_.takeSymbol("*")) {
            output.all = true;
        } else if (tokens_.isName() && tokens_.isSymbol(".", 1) && tokens_.isSymbol("*", 2)) {
            output.all = true;
            output.qualifier = tokens_.expectName();
            tokens_.expectSymbol(".");
            tokens_.expectSymbol("*");
        } else {
            output.value = expressions_.expression();
            if (output.value->form == Form::column) output.name = output.value->text;
            if (auto alias = optionalAlias(); !alias.empty()) {
                output.name = std::move(alias);
                output.aliased = true;
            }
        }
        return output;
    }

    std::string optionalAlias() {
        if (tokens_.takeWord("AS")) return tokens_.expectName();
        return tokens_.isName() ? tokens_.expectName() : std::string();
    }

    std::vector<Source> sources() {
        std::vector<Source> found;
        found.push_back(source(Join::first));
        while (true) {
            if (tokens_.takeSymbol(",")) {
                found.push_back(source(Join::comma));
            } else if (const auto join = joinWords()) {
                found.push_back(source(*join));
                if (*join == Join::cross) continue;
                tokens_.expectWord("ON");
                found.back().on = expressions_.expression();
            } else {
                return found;
            }
        }
    }

    std::optional<Join> joinWords() {
        if (tokens_.takeWord("JOIN") || tokens_.takeWords({"INNER", "JOIN"})) return Join::inner;
        if (tokens_.takeWords({"CROSS", "JOIN"})) return Join::cross;
        const auto outer = [&](std::string_view side) {
            return tokens_.takeWords({side, "JOIN"}) || tokens_.takeWords({side, "OUTER", "JOIN"});
        };
        if (outer("LEFT")) return Join::left;
        if (outer("RIGHT")) return Join::right;
        if (outer("FULL")) return Join::full;
        return std::nullopt;
    }

    Source source(Join join) {
        Source source{.join = join};
        if (tokens_.takeSymbol("(")) {
            source.query = std::make_shared<Query>(query());
            tokens_.expectSymbol(")");
        } else {
            source.table = tokens_.expectName();
        }
        source.alias = optionalAlias();
        // A derived table is known by its alias alone.
        if (source.query && source.alias.empty()) tokens_.fail();
        return source;
    }

    std::optional<Expression> where() {
        if (!tokens_.takeWord("WHERE")) return std::nullopt;
        return expressions_.expression();
    }

    std::vector<Expression> list() {
        std::vector<Expression> found;
        do found.push_back(expressions_.expression());
        while (tokens_.takeSymbol(","));
        return found;
    }

    std::vector<Order> order() {
        std::vector<Order> found;
        do {
            Order item{.value = expressions_.expression()};
            item.descending = tokens_.takeWord("DESC");
            if (!item.descending) tokens_.takeWord("ASC");
            found.push_back(std::move(item));
        } while (tokens_.takeSymbol(","));
        return found;
    }

    Update update() {
        Update update;
        if (tokens_.takeWord("TOP")) update.top = top();
        update.target.table = tokens_.expectName();
        tokens_.expectWord("SET");
        do {
            Assignment assignment;
            assignment.column = tokens_.expectName();
            tokens_.expectSymbol("=");
            assignment.value = expressions_.expression();
            update.assignments.push_back(std::move(assignment));
        } while (tokens_.takeSymbol(","));
        update.where = where();
        return update;
    }

    Delete deletion() {
        Delete deletion;
        tokens_.takeWord("FROM");
        deletion.target.table = tokens_.expectName();
        deletion.where = where();
        return deletion;
    }

    Insert insert() {
        Insert insert;
        tokens_.takeWord("INTO");
        insert.target.table = tokens_.expectName();
        if (tokens_.takeWords({"DEFAULT", "VALUES"})) return insert;
        if (tokens_.takeSymbol("(")) {
            do insert.columns.push_back(tokens_.expectName());
            while (tokens_.takeSymbol(","));
            tokens_.expectSymbol(")");
        }
        tokens_.expectWord("VALUES");
        do {
            tokens_.expectSymbol("(");
            insert.rows.push_back(list());
            tokens_.expectSymbol(")");
        } while (tokens_.takeSymbol(","));
        return insert;
    }

    TokenStream tokens_;
    ExpressionParser expressions_;
    int depth_ = 0;
};

}  // namespace

Statement parse(std::string_view statement) {
    return Parser(statement).statement();
}

}  // namespace desk::tsql
