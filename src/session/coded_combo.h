#pragma once

#include <string>
#include <string_view>

#include "ui/choices.h"

namespace desk {

class Recordset;

/// A combo of coded entries "{code} {name}": offices, teams, persons, states.
class CodedCombo : public ComboBox {
  public:
    using ComboBox::ComboBox;

    /// The columns that entries are made of; with a third one each entry has a colour before its text, which
    /// is its data, too.
    struct Columns {
        std::string_view code;
        std::string_view name;
        std::string_view colour{};
    };
    /// Replaces the entries by those of `rows`, none selected. What was read before a failure stays.
    void fill(Recordset rows, const Columns& columns);

    /// Of the selected entry, empty without one.
    std::string code() const;
    std::string name() const;

    /// Selects the first entry of that code or name; where there is none the selection stays.
    void selectCode(std::string_view code);
    void selectName(std::string_view name);
};

}  // namespace desk
