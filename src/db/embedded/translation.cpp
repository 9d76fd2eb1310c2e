#include "db/embedded/translation.h"

#include "db/embedded/grouped_join.h"
#include "db/embedded/renderer.h"
#include "db/tsql/front.h"

namespace desk::embedded {

Translation translate(std::string_view statement, Rows mode) {
    auto understood = tsql::understand(statement);
    if (auto* query = std::get_if<tsql::Query>(&understood.statement)) lookUpGroups(*query);
    const auto* table = mode == Rows::updatable ? understood.table : nullptr;
    return {render(understood.statement, table != nullptr ? RowNumbers::first : RowNumbers::without),
            understood.givesRows(), std::move(understood.columns), table};
}

}  // namespace desk::embedded
