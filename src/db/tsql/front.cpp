#include "db/tsql/front.h"

#include "db/tsql/parser.h"
#include "db/tsql/resolver.h"

namespace desk::tsql {

Understood understand(std::string_view statement) {
    Understood understood{.statement = parse(statement)};
    resolve(understood.statement);
    if (const auto* query = std::get_if<Query>(&understood.statement)) {
        understood.table = updatableTable(*query);
        for (const auto& output : query->outputs)
            understood.columns.push_back({output.name, output.value->type, output.value->column});
    }
    return understood;
}

}  // namespace desk::tsql
