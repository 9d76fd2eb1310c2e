#include "db/embedded/translation.h"

#include "db/embedded/grouped_join.h"
#include "db/embedded/parser.h"
#include "db/embedded/renderer.h"
#include "db/embedded/resolver.h"

namespace desk::embedded {

Translation translate(std::string_view statement, Rows mode) {
    auto parsed = parse(statement);
    resolve(parsed);
    Translation translation;
    if (auto* query = std::get_if<Query>(&parsed)) {
        translation.givesRows = true;
        if (mode == Rows::updatable) translation.table = updatableTable(*query);
        for (const auto& output : query->outputs)
            translation.columns.push_back({output.name, output.value->type, output.value->column});
        lookUpGroups(*query);
    }
    translation.sql = render(parsed, translation.table != nullptr ? RowNumbers::first : RowNumbers::without);
    return translation;
}

}  // namespace desk::embedded
