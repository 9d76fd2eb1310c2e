#include "all_statements.h"

#include <map>
#include <stdexcept>

#include "filled_database.h"

namespace desk {

namespace {

class Composer {
  public:
    Composer() : statements_(linesOf("statements.txt")) {
        for (const auto& line : linesOf("statement_values.txt")) {
            const auto tab = line.find('\t');
            values_[line.substr(0, tab)] = line.substr(tab + 1);
        }
    }

    std::vector<std::string> all() const {
        std::vector<std::string> composed;
        for (std::size_t number = 1; number <= statements_.size(); ++number)
            composed.push_back(statement(number));
        return composed;
    }

  private:
    std::string statement(std::size_t number) const {
        const auto& text = statements_.at(number - 1);
        std::string composed;
        std::size_t at = 0;
        for (auto open = text.find('{'); open != std::string::npos; open = text.find('{', at)) {
            const auto close = text.find('}', open);
            composed += text.substr(at, open - at) + value(number, text.substr(open + 1, close - open - 1));
            at = close + 1;
        }
        return composed + text.substr(at);
    }

    /// A value of this statement alone goes before one of all statements; "@n" is the whole statement n.
    std::string value(std::size_t number, const std::string& name) const {
        auto found = values_.find(std::to_string(number) + " " + name);
        if (found == values_.end()) found = values_.find(name);
        if (found == values_.end()) throw std::logic_error("no value for {" + name + "}");
        if (found->second.starts_with('@')) return statement(std::stoul(found->second.substr(1)));
        return found->second;
    }

    std::vector<std::string> statements_;
    std::map<std::string, std::string> values_;
};

}  // namespace

std::vector<std::string> allStatements() {
    return Composer().all();
}

}  // namespace desk
