#include "db/tsql/scope.h"

#include "db/tsql/sql_failure.h"

namespace desk::tsql {

namespace {

void bind(Expression& expression, const Source& source, const SourceColumn& column) {
    expression.qualifier = source.name();
    expression.text = column.name;
    expression.type = column.type;
    expression.table = column.table;
    expression.column = column.column;
}

}  // namespace

void Scope::add(const Source& source) {
    for (const auto* other : sources_)
        if (schema::sameName(other->name(), source.name()))
            wrongStatement(fmt::format("FROM 子句中有两个对象名为 '{}'，请用别名区分。", source.name()));
    sources_.push_back(&source);
}

void Scope::resolve(Expression& column) const {
    for (const auto* scope = this; scope != nullptr; scope = scope->outer_)
        if (scope->resolveHere(column)) return;
    if (column.qualifier.empty()) wrongStatement(fmt::format("列名 '{}' 无效。", column.text));
    wrongStatement(fmt::format("无法绑定由多个部分组成的标识符 \"{}.{}\"。", column.qualifier, column.text));
}

bool Scope::resolveHere(Expression& column) const {
    const auto qualifier = column.qualifier;
    const auto name = column.text;
    int found = 0;
    for (std::size_t i = visibleFrom_; i < sources_.size(); ++i) {
        const auto& source = *sources_[i];
        const bool meant = !qualifier.empty() && schema::sameName(source.name(), qualifier);
        if (!qualifier.empty() && !meant) continue;
        for (const auto& candidate : source.columns) {
            if (!schema::sameName(candidate.name, name)) continue;
            if (++found > 1) wrongStatement(fmt::format("列名 '{}' 不明确。", name));
            bind(column, source, candidate);
        }
        if (meant && found == 0) wrongStatement(fmt::format("列名 '{}' 无效。", name));
    }
    return found == 1;
}

const Source& Scope::named(std::string_view name) const {
    for (const auto* source : sources_)
        if (schema::sameName(source->name(), name)) return *source;
    wrongStatement(fmt::format("列前缀 '{}' 与查询中所用的表名或别名不匹配。", name));
}

}  // namespace desk::tsql
