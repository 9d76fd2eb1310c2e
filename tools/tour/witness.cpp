#include "db/recordset.h"
#include "tour/itinerary.h"

namespace desk::tour {

std::string Witness::first(const std::string& statement) {
    Recordset rows(connection_, statement);
    return rows.atEnd() ? std::string() : rows[0].text();
}

std::string Witness::officeEntry() {
    return first("Select GYD_DH From 设置管理处 Order By len(GYD_DH),GYD_DH") + " " +
           first("Select GYD_Name From 设置管理处 Order By len(GYD_DH),GYD_DH");
}

}  // namespace desk::tour
