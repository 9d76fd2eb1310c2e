#include "schema/catalogue.h"

#include <algorithm>

#include "base/text.h"
#include "schema/table_lists.h"

namespace desk::schema {

namespace {

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool sameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return x == y || lowered(x) == lowered(y);
           });
}

const Column* Table::column(std::string_view columnName) const {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column& c) { return sameName(c.name, columnName); });
    return found == columns.end() ? nullptr : &*found;
}

const Column* Table::identity() const {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [](const Column& c) { return c.kind == Kind::identity; });
    return found == columns.end() ? nullptr : &*found;
}

RowAddress Table::address() const {
    if (const auto* number = identity()) return {{number}, true};
    RowAddress found{{}, false};
    for (const auto& index : indexes) {
        if (!index.unique) continue;
        for (const auto& part : split(index.columns, ',')) found.columns.push_back(column(part));
        found.unique = true;
        return found;
    }
    for (const auto& each : columns)
        if (each.copyOf.empty()) found.columns.push_back(&each);
    return found;
}

std::span<const Table> tables() {
    static const std::vector<Table> all = [] {
        auto list = tenantTables();
        for (auto& table : sharedTables()) list.push_back(std::move(table));
        return list;
    }();
    return all;
}

const Table* table(std::string_view name) {
    const auto all = tables();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Table& t) { return sameName(t.name, name); });
    return found == all.end() ? nullptr : &*found;
}

}  // namespace desk::schema
