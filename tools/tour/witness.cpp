#include "db/recordset.h"
#include "tour/itinerary.h"

namespace desk::tour {

std::string Witness::first(const std::string& statement) {
    Recordset rows(connection_, statement);
    return rows.atEnd() ? std::string() : rows[0].text();
}

}  // namespace desk::tour
