#include "db/tsql/resolver.h"

#include <algorithm>

#include "db/tsql/expression_resolver.h"
#include "db/tsql/sql_failure.h"
#include "db/tsql/typing.h"

namespace desk::tsql {

namespace {

/// Where a query stands.
enum class Place {
    outermost,
    derivedTable,
    inCondition,
};

const schema::Table& knownTable(std::string_view name) {
    const auto* table = schema::table(name);
    if (table == nullptr) unknownTable(name);
    return *table;
}

void fillFromCatalogue(Source& source) {
    const auto& table = knownTable(source.table);
    source.table = table.name;
    source.columns.reserve(table.columns.size());
    for (const auto& column : table.columns)
        source.columns.push_back({std::string(column.name), typeOf(column.kind), &table, &column});
}

/// What a derived table offers. Every column must have a name of its own.
void fillFromQuery(Source& source) {
    for (const auto& output : source.query->outputs) {
        if (output.name.empty()) wrongStatement(fmt::format("没有为 '{}' 的每一列指定列名。", source.name()));
        for (const auto& other : source.columns)
            if (schema::sameName(other.name, output.name))
                wrongStatement(fmt::format("多次为 '{}' 指定了列 '{}'。", source.name(), output.name));
        const auto& value = *output.value;
        source.columns.push_back({output.name, value.type, nullptr, value.column});
    }
}

class Resolver {
  public:
    Resolver()
        : expressions_(
              [this](Query& inner, const Scope* outer) { query(inner, outer, Place::inCondition); }) {}

    void operator()(Query& statement) { query(statement, nullptr, Place::outermost); }

    void operator()(Update& statement) {
        const Scope scope = targetScope(statement.target);
        const auto& table = *schema::table(statement.target.table);
        for (auto& assignment : statement.assignments) {
            const auto& column = writable(table, assignment.column);
            if (column.kind == schema::Kind::identity)
                wrongStatement(fmt::format("无法更新标识列 '{}'。", column.name));
            expressions_.value(assignment.value, scope);
            makeStorable(assignment.value, column);
        }
        if (statement.where) expressions_.condition(*statement.where, scope);
    }

    void operator()(Delete& statement) {
        const Scope scope = targetScope(statement.target);
        if (statement.where) expressions_.condition(*statement.where, scope);
    }

    /// Inserting is for the tools that fill a database, so an identity may be given.
    void operator()(Insert& statement) {
        fillFromCatalogue(statement.target);
        const auto& table = *schema::table(statement.target.table);
        if (statement.columns.empty() && !statement.rows.empty())
            for (const auto& column : table.columns)
                if (column.kind != schema::Kind::identity && column.copyOf.empty())
                    statement.columns.emplace_back(column.name);
        for (auto& row : statement.rows) {
            if (row.size() != statement.columns.size()) wrongStatement("INSERT 的列数与值数不一致。");
            for (std::size_t i = 0; i < row.size(); ++i) {
                const auto& column = writable(table, statement.columns[i]);
                statement.columns[i] = column.name;
                expressions_.value(row[i], Scope());
                makeStorable(row[i], column);
            }
        }
    }

  private:
    static const schema::Column& writable(const schema::Table& table, std::string& name) {
        const auto* column = table.column(name);
        if (column == nullptr) wrongStatement(fmt::format("列名 '{}' 无效。", name));
        if (!column->copyOf.empty()) wrongStatement(fmt::format("不能修改计算列 '{}'。", column->name));
        name = column->name;
        return *column;
    }

    static Scope targetScope(Source& target) {
        fillFromCatalogue(target);
        Scope scope;
        scope.add(target);
        return scope;
    }

    void query(Query& query, const Scope* outer, Place place) {
        Scope scope(outer);
        sources(query, scope);
        if (query.where) expressions_.condition(*query.where, scope);
        outputs(query, scope);
        for (auto& item : query.groupBy) expressions_.value(item, scope);
        if (query.having) expressions_.condition(*query.having, scope, Aggregates::allowed);
        if (place != Place::outermost && !query.orderBy.empty() && !query.top)
            wrongStatement("除非同时指定了 TOP，否则 ORDER BY 子句在派生表和子查询中无效。");
        order(query, scope);
        checkGrouping(query);
    }

    void sources(Query& query, Scope& scope) {
        for (auto& source : query.sources) {
            if (source.query) {
                this->query(*source.query, nullptr, Place::derivedTable);
                fillFromQuery(source);
            } else {
                fillFromCatalogue(source);
            }
            scope.add(source);
            if (source.join == Join::comma) scope.keepLast();
            if (source.on) expressions_.condition(*source.on, scope);
        }
        scope.showAll();
    }

    void outputs(Query& query, const Scope& scope) {
        std::vector<Output> expanded;
        for (auto& output : query.outputs) {
            if (!output.all) {
                expressions_.value(*output.value, scope, Aggregates::allowed);
                expanded.push_back(std::move(output));
                continue;
            }
            if (scope.sources().empty()) syntaxErrorNear("*");
            if (output.qualifier.empty())
                for (const auto* source : scope.sources()) expand(*source, expanded);
            else
                expand(scope.named(output.qualifier), expanded);
        }
        query.outputs = std::move(expanded);
    }

    static void expand(const Source& source, std::vector<Output>& outputs) {
        for (const auto& column : source.columns) {
            Expression value{.form = Form::column, .text = column.name, .qualifier = source.name()};
            value.type = column.type;
            value.table = column.table;
            value.column = column.column;
            outputs.push_back({.value = std::move(value), .name = column.name});
        }
    }

    void order(Query& query, const Scope& scope) {
        for (auto& item : query.orderBy) {
            if (item.value.form == Form::number)
                item.ordinal = ordinal(query, item.value.text);
            else if (item.value.form == Form::column && item.value.qualifier.empty())
                item.ordinal = outputNamed(query, item.value.text);
            if (item.ordinal == 0)
                expressions_.value(item.value, scope, Aggregates::allowed);
            else
                item.value = *query.outputs[item.ordinal - 1].value;
            const auto sameAsItem = [&](const Output& output) {
                return sameExpression(*output.value, item.value);
            };
            if (query.distinct && item.ordinal == 0 &&
                std::none_of(query.outputs.begin(), query.outputs.end(), sameAsItem))
                wrongStatement(
                    "如果指定了 SELECT DISTINCT，那么 ORDER BY 子句中的项就必须出现在选择列表中。");
        }
    }

    static std::size_t ordinal(const Query& query, const std::string& text) {
        const bool digits = text.find_first_not_of("0123456789") == std::string::npos;
        const auto position = digits && text.size() < 6 ? std::stoul(text) : 0;
        if (position == 0 || position > query.outputs.size())
            wrongStatement(fmt::format("ORDER BY 位置号 {} 超出了选择列表中的项数。", text));
        return position;
    }

    /// The output that a bare name in Order By means, from 1; 0 when it means none.
    static std::size_t outputNamed(const Query& query, const std::string& name) {
        std::size_t found = 0;
        for (std::size_t i = 0; i < query.outputs.size(); ++i) {
            if (!schema::sameName(query.outputs[i].name, name)) continue;
            if (found != 0 && !sameExpression(*query.outputs[found - 1].value, *query.outputs[i].value))
                wrongStatement(fmt::format("列名 '{}' 不明确。", name));
            if (found == 0) found = i + 1;
        }
        return found;
    }

    static void checkGrouping(const Query& query) {
        const auto aggregated = [](const Output& output) { return hasAggregate(*output.value); };
        const bool grouped = !query.groupBy.empty() || query.having ||
                             std::any_of(query.outputs.begin(), query.outputs.end(), aggregated);
        if (!grouped) return;
        for (const auto& output : query.outputs) requireGrouped(*output.value, query);
        if (query.having) requireGrouped(*query.having, query);
        for (const auto& item : query.orderBy) requireGrouped(item.value, query);
    }

    static void requireGrouped(const Expression& expression, const Query& query) {
        if (expression.form == Form::aggregate) return;
        for (const auto& item : query.groupBy)
            if (sameExpression(item, expression)) return;
        if (expression.form == Form::column)
            wrongStatement(fmt::format("列 '{}.{}' 无效，因为该列没有包含在聚合函数或 GROUP BY 子句中。",
                                       expression.qualifier, expression.text));
        for (const auto& part : expression.parts) requireGrouped(part, query);
    }

    ExpressionResolver expressions_;
};

}  // namespace

void resolve(Statement& statement) {
    std::visit(Resolver(), statement);
}

const schema::Table* updatableTable(const Query& query) {
    const bool oneTable = query.sources.size() == 1 && !query.sources.front().query;
    if (!oneTable || query.distinct || !query.groupBy.empty()) return nullptr;
    for (const auto& output : query.outputs)
        if (hasAggregate(*output.value)) return nullptr;
    return schema::table(query.sources.front().table);
}

}  // namespace desk::tsql
