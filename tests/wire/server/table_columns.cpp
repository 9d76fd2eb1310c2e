#include "wire/server/table_columns.h"

#include <map>

namespace desk::wire {

namespace {

using schema::Kind;

const std::map<Kind, DescribedColumn> types = {
    {Kind::text, {"", "nvarchar", 400}},       {Kind::longText, {"", "nvarchar", -1}},
    {Kind::integer, {"", "int", 4, 10}},       {Kind::identity, {"", "int", 4, 10}},
    {Kind::number, {"", "float", 8, 53}},      {Kind::money, {"", "money", 8, 19, 4}},
    {Kind::flag, {"", "bit", 1, 1}},           {Kind::date, {"", "datetime", 8, 23, 3}},
    {Kind::moment, {"", "datetime", 8, 23, 3}}};

}  // namespace

std::vector<DescribedColumn> describedColumns(const schema::Table& table) {
    std::vector<DescribedColumn> all;
    for (const auto& column : table.columns) {
        auto described = types.at(column.kind);
        described.name = column.name;
        described.nullable = !column.required;
        described.identity = column.kind == Kind::identity;
        described.computed = !column.copyOf.empty();
        all.push_back(std::move(described));
    }
    return all;
}

std::optional<std::string> tableAskedFor(std::string_view statement) {
    if (statement.find("sys.columns") == std::string_view::npos) return {};
    const auto from = statement.find('[', statement.find("OBJECT_ID(")) + 1;
    return std::string(statement.substr(from, statement.find(']', from) - from));
}

}  // namespace desk::wire
