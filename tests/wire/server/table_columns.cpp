#include "wire/server/table_columns.h"

namespace desk::wire {

namespace {

using schema::Kind;

DescribedColumn typed(Kind kind) {
    switch (kind) {
        case Kind::text:
            return {"", "nvarchar", 400};
        case Kind::longText:
            return {"", "nvarchar", -1};
        case Kind::integer:
        case Kind::identity:
            return {"", "int", 4, 10};
        case Kind::number:
            return {"", "float", 8, 53};
        case Kind::money:
            return {"", "money", 8, 19, 4};
        case Kind::flag:
            return {"", "bit", 1, 1};
        case Kind::date:
        case Kind::moment:
            break;
    }
    return {"", "datetime", 8, 23, 3};
}

}  // namespace

std::vector<DescribedColumn> describedColumns(const schema::Table& table) {
    std::vector<DescribedColumn> all;
    for (const auto& column : table.columns) {
        auto described = typed(column.kind);
        described.name = column.name;
        described.nullable = !column.required;
        described.identity = column.kind == Kind::identity;
        described.computed = !column.copyOf.empty();
        all.push_back(std::move(described));
    }
    return all;
}

std::optional<std::string> tableAskedFor(std::string_view statement) {
    constexpr std::string_view opening = "OBJECT_ID(";
    if (statement.find("sys.columns") == std::string_view::npos) return {};
    const auto from = statement.find('[', statement.find(opening));
    const auto to = statement.find(']', from);
    if (to == std::string_view::npos) return {};
    return std::string(statement.substr(from + 1, to - from - 1));
}

}  // namespace desk::wire
