#include "wire/server/dialog.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <utility>

#include "base/failure.h"
#include "db/recordset.h"
#include "db/transaction.h"
#include "db/tsql/front.h"
#include "db/tsql/token_stream.h"
#include "schema/definition.h"

namespace desk::wire {

namespace {

/// The statements of a batch, with semicolons between them.
std::vector<std::string_view> statementsOf(std::string_view batch) {
    std::vector<std::string_view> found;
    std::size_t from = 0;
    bool quoted = false;
    for (std::size_t i = 0; i <= batch.size(); ++i) {
        if (i < batch.size() && batch[i] == '\'') quoted = !quoted;
        if (i < batch.size() && (quoted || batch[i] != ';')) continue;
        if (const auto text = trimmed(batch.substr(from, i - from)); !text.empty()) found.push_back(text);
        from = i + 1;
    }
    return found;
}

const schema::Table* definedBy(std::string_view text) {
    for (const auto& table : schema::tables())
        if (schema::tableStatement(schema::Dialect::sqlServer, table) == text) return &table;
    return nullptr;
}

/// A failure of the embedded engine, as a server would tell it.
Failure serverFailure(const RuntimeFailure& failure) {
    static const std::map<long, int> numbers = {{failure::unknownTable, 208},  {failure::wrongStatement, 102},
                                                {failure::textTooLong, 8152},  {failure::timedOut, 1222},
                                                {failure::violatedRule, 2601}, {failure::badConversion, 245}};
    const auto found = numbers.find(failure.number());
    return {found == numbers.end() ? 50000 : found->second, failure.description()};
}

void single(const WireColumn& column, const Value& value, Tokens& out) {
    out.columns({column});
    out.beginRow();
    out.value(column, value);
    out.done(1);
}

}  // namespace

void Dialog::answer(std::string_view batch, Tokens& out) {
    try {
        for (const auto text : statementsOf(batch)) statement(text, out);
    } catch (const RuntimeFailure& failure) {
        out.failed(serverFailure(failure));
    } catch (const Failure& failure) {
        out.failed(failure);
    }
}

void Dialog::statement(std::string_view text, Tokens& out) {
    if (text.starts_with("CREATE ")) return define(text, out);
    if (ownWords(text, out)) return;
    if (const auto table = tableAskedFor(text)) return describe(*table, out);
    if (tsql::understand(text).givesRows()) return query(text, out);
    write(text, out);
}

/// What the embedded engine does by other calls, or not at all.
bool Dialog::ownWords(std::string_view text, Tokens& out) {
    tsql::TokenStream words(text);
    if (words.takeWord("SET")) {
        out.done();
    } else if (words.takeWords({"BEGIN", "TRANSACTION"})) {
        begin(out);
    } else if (words.takeWords({"IF", "@@TRANCOUNT"})) {
        undo();
        out.done();
    } else if (words.takeWords({"SELECT", "@@TRANCOUNT"})) {
        single({"", WireType::integer}, Value(inTransaction_ ? 1 : 0), out);
    } else if (words.takeWord("COMMIT")) {
        end(true, out);
    } else if (words.takeWord("ROLLBACK")) {
        end(false, out);
    } else if (words.takeWords({"SELECT", "SCOPE_IDENTITY"})) {
        single({"", WireType::decimal}, lastIdentity_, out);
    } else {
        return false;
    }
    return true;
}

void Dialog::define(std::string_view text, Tokens& out) {
    if (const auto* table = definedBy(text)) {
        if (!made_ || !made_->emplace(table->name).second)
            throw Failure{2714, fmt::format("数据库中已存在名为 '{}' 的对象。", table->name)};
    } else {
        const auto all = schema::definition(schema::Dialect::sqlServer);
        if (std::find(all.begin(), all.end(), text) == all.end())
            throw Failure{102, "'CREATE' 附近有语法错误。"};
    }
    out.done();
}

void Dialog::describe(const std::string& table, Tokens& out) {
    std::vector<WireColumn> shape(9, {"", WireType::integer});
    shape[0].type = shape[1].type = WireType::text;
    std::vector<DescribedColumn> columns;
    if (const auto* known = schema::table(table)) columns = describedColumns(*known);
    describing_(table, columns);
    out.columns(shape);
    for (const auto& each : columns) {
        const Value row[] = {each.name,     each.type,     each.bytes,    each.precision, each.scale,
                             each.nullable, each.identity, each.computed, each.hasDefault};
        out.beginRow();
        for (std::size_t i = 0; i < shape.size(); ++i) out.value(shape[i], row[i]);
    }
    out.done(static_cast<long>(columns.size()));
}

void Dialog::begin(Tokens& out) {
    database_.begin();
    inTransaction_ = true;
    if (made_) madeBefore_ = *made_;
    out.done();
}

void Dialog::end(bool committed, Tokens& out) {
    if (!inTransaction_) throw Failure{committed ? 3902 : 3903, "该请求没有对应的 BEGIN TRANSACTION。"};
    if (!committed) {
        undo();
    } else {
        database_.commit();
        inTransaction_ = false;
    }
    out.done();
}

void Dialog::undo() {
    if (!inTransaction_) return;
    database_.rollback();
    if (made_) *made_ = madeBefore_;
    inTransaction_ = false;
}

void Dialog::requireMade(std::string_view table) const {
    if (made_ && !made_->contains(table)) throw Failure{208, fmt::format("对象名 '{}' 无效。", table)};
}

void Dialog::query(std::string_view text, Tokens& out) {
    const auto understood = tsql::understand(text);
    for (const auto& source : std::get<tsql::Query>(understood.statement).sources)
        if (!source.query) requireMade(source.table);
    std::vector<WireColumn> columns;
    for (const auto& column : understood.columns) columns.push_back(wireColumn(column));
    Recordset rows(database_, text);
    out.columns(columns);
    long count = 0;
    for (auto& row : rows) {
        out.beginRow();
        for (std::size_t i = 0; i < columns.size(); ++i)
            out.value(columns[i], row[static_cast<int>(i)].value());
        ++count;
    }
    out.done(count);
}

void Dialog::write(std::string_view text, Tokens& out) {
    const auto understood = tsql::understand(text);
    const auto target = std::visit(
        [](const auto& statement) {
            if constexpr (requires { statement.target; }) return statement.target.table;
            return std::string();
        },
        understood.statement);
    requireMade(target);
    const auto& table = *schema::table(target);
    const bool numbers =
        std::holds_alternative<tsql::Insert>(understood.statement) && table.identity() != nullptr;
    out.done(numbers ? insert(text, table) : database_.execute(text));
}

/// Nobody else may add a row before this one's number has been read.
long Dialog::insert(std::string_view text, const schema::Table& target) {
    std::optional<Transaction> own;
    if (!inTransaction_) own.emplace(database_);
    const long count = database_.execute(text);
    const auto newest = fmt::format("Select Max({}) From {}", target.identity()->name, target.name);
    lastIdentity_ = Recordset(database_, newest)[0].value();
    if (own) own->commit();
    return count;
}

}  // namespace desk::wire
