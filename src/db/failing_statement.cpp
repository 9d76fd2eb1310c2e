#include "db/failing_statement.h"

namespace desk {

std::string withoutSecrets(std::string_view statement) {
    if (statement.find("密码") == std::string_view::npos) return std::string(statement);
    // Whatever stands in quotes, since a quote that is typed can shift where a text seems to end.
    const auto first = statement.find('\'');
    const auto last = statement.rfind('\'');
    if (first == last) return std::string(statement.substr(0, first));
    return std::string(statement.substr(0, first)) + "'…'" + std::string(statement.substr(last + 1));
}

}  // namespace desk
