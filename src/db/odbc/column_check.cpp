#include "db/odbc/column_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>
#include <optional>

#include "db/odbc/server_words.h"

namespace desk::odbc {

namespace {

using schema::Column;
using schema::Kind;

/// A column as the server describes it.
struct Found {
    std::string name;
    std::string type;
    std::int64_t bytes = 0;  ///< -1: any number
    std::int64_t digits = 0;
    std::int64_t decimals = 0;
    bool nullable = false;
    bool numbered = false;
    bool computed = false;
    bool filled = false;  ///< with a default where nothing is said

    bool isOneOf(std::initializer_list<std::string_view> types) const {
        return std::find(types.begin(), types.end(), type) != types.end();
    }
    /// The type as the definition of a table says it.
    std::string shown() const {
        if (isOneOf({"nvarchar", "nchar"}) && bytes >= 0) return fmt::format("{}({})", type, bytes / 2);
        if (isOneOf({"nvarchar", "varchar"}) && bytes < 0) return type + "(max)";
        if (isOneOf({"varchar", "char"})) return fmt::format("{}({})", type, bytes);
        if (isOneOf({"decimal", "numeric"})) return fmt::format("{}({},{})", type, digits, decimals);
        return type;
    }
};

std::vector<Found> columnsOf(Engine& engine, std::string_view table) {
    const auto rows =
        engine.open(fmt::format("Select c.name,TYPE_NAME(c.system_type_id),Cast(c.max_length As int),"
                                "Cast(c.[precision] As int),Cast(c.scale As int),Cast(c.is_nullable As int),"
                                "Cast(c.is_identity As int),Cast(c.is_computed As int),c.default_object_id "
                                "From sys.columns c Where c.object_id=OBJECT_ID({}) Order By c.column_id",
                                literal(bracketed(table))),
                    Rows::forwardOnly);
    std::vector<Found> found;
    for (; !rows->atEnd(); rows->moveNext()) {
        const auto number = [&](int column) { return rows->value(column).integer(); };
        found.push_back({rows->text(0), rows->text(1), number(2), number(3), number(4), number(5) != 0,
                         number(6) != 0, number(7) != 0, number(8) != 0});
    }
    return found;
}

struct Judgement {
    std::string reason;
    bool harmful = true;
};
using Judged = std::optional<Judgement>;

Judged judgeText(const Column& wanted, const Found& found) {
    if (found.isOneOf({"varchar", "char", "text"})) return Judgement{"不能保存所有的汉字"};
    if (found.type == "nchar") return Judgement{"会在内容后面补空格"};
    if (found.type == "ntext") return Judgement{"不能用来比较和排序"};
    if (found.type != "nvarchar") return Judgement{"不能保存文本"};
    const bool unlimited = found.bytes < 0;
    const auto length = static_cast<std::size_t>(found.bytes) / 2;
    if (wanted.kind == Kind::longText) {
        if (unlimited) return {};
        return Judgement{fmt::format("较长的内容会被拒绝，应不限长度")};
    }
    if (!unlimited && length < schema::textLength)
        return Judgement{fmt::format("较长的内容会被拒绝，应有 {} 个字", schema::textLength)};
    if (unlimited || length > schema::textLength) return Judgement{"比需要的长", false};
    return {};
}

/// Whether as many digits before and behind the point have room.
Judged judgeNumber(const Found& found, std::int64_t whole, std::int64_t decimals) {
    if (found.type == "float") return Judgement{"按浮点数保存", false};
    if (found.type == "real") return Judgement{"有效数字不够"};
    if (!found.isOneOf(
            {"bigint", "int", "smallint", "tinyint", "bit", "decimal", "numeric", "money", "smallmoney"}))
        return Judgement{"不能保存数"};
    if (found.digits - found.decimals < whole) return Judgement{"放不下较大的数"};
    if (found.decimals < decimals)
        return Judgement{fmt::format("小数只有 {} 位，其余会丢失", found.decimals)};
    return Judgement{"放得下需要的数", false};
}

Judged judgeMoment(const Column& wanted, const Found& found) {
    const bool timed = wanted.kind == Kind::moment;
    if (found.type == "datetime2") return Judgement{"放得下需要的时间", false};
    if (found.type == "smalldatetime") return Judgement{timed ? "不保存秒" : "放得下需要的日期", timed};
    if (found.type == "date") return Judgement{timed ? "不保存时刻" : "放得下需要的日期", timed};
    return Judgement{"不能保存日期"};
}

Judged judgeType(const Column& wanted, const Found& found) {
    const auto unless = [&](std::string_view usual, Judged judged) {
        return found.type == usual ? Judged() : std::move(judged);
    };
    switch (wanted.kind) {
        case Kind::text:
        case Kind::longText:
            return judgeText(wanted, found);
        case Kind::integer:
        case Kind::identity:
            return unless("int", judgeNumber(found, 10, 0));
        case Kind::number:
            return unless("float", judgeNumber(found, 9, 4));
        case Kind::money:
            return unless("money", judgeNumber(found, 9, 4));
        case Kind::flag:
            return unless("bit", judgeNumber(found, 1, 0));
        case Kind::date:
        case Kind::moment:
            return unless("datetime", judgeMoment(wanted, found));
    }
    return {};
}

/// Who gives the value, the program or the server.
Judged judgeOrigin(const Column& wanted, const Found& found) {
    const bool numbered = wanted.kind == Kind::identity;
    if (found.numbered != numbered)
        return Judgement{numbered ? "没有自动编号" : "由服务器自动编号，本程序不能写入"};
    if (found.computed == wanted.copyOf.empty())
        return Judgement{found.computed ? "由服务器计算，本程序不能写入"
                                        : fmt::format("应总是与列 {} 相同", wanted.copyOf)};
    return {};
}

Judged judgeNull(const Column& wanted, const Found& found) {
    if (wanted.required || found.nullable || found.computed) return {};
    if (found.filled) return Judgement{"不能为空，由服务器填入缺省值", false};
    return Judgement{"不能为空，留空的内容会被拒绝"};
}

/// A column that the program knows nothing of, and therefore leaves empty.
Judged judgeUnknown(const Found& found) {
    if (found.nullable || found.filled || found.numbered || found.computed || found.type == "timestamp")
        return {};
    return Judgement{"本程序没有这一列，它又不能为空，新增的行会被拒绝"};
}

std::vector<Judged> judge(const Column* wanted, const Found& found) {
    if (wanted == nullptr) return {judgeUnknown(found)};
    return {judgeType(*wanted, found), judgeOrigin(*wanted, found), judgeNull(*wanted, found)};
}

}  // namespace

std::vector<Difference> differencesOf(Engine& engine, const schema::Table& table) {
    const auto columns = columnsOf(engine, table.name);
    // Another name for a table elsewhere can be read, but has no columns of its own.
    if (columns.empty()) return {{fmt::format("表 {} 的列不能查看，没有核对类型", table.name), false}};
    std::vector<Difference> differences;
    for (const auto& found : columns)
        for (const auto& judged : judge(table.column(found.name), found))
            if (judged)
                differences.push_back({fmt::format("表 {} 的列 {}（{}）{}", table.name, found.name,
                                                   found.shown(), judged->reason),
                                       judged->harmful});
    return differences;
}

}  // namespace desk::odbc
