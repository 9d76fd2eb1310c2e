#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace desk::desktop {

/// Measures texts, tens of thousands in one go. Digits and Han characters, which most cells are made of,
/// stand beside each other without touching: so each of them is measured once, and texts of them alone are
/// added up. Other texts are measured whole, and remembered: in most columns they repeat.
class TextWidths {
  public:
    /// In the font, in twips.
    double of(const QFont& font, std::string_view text);

  private:
    /// In pixels; negative where the text has other signs, too.
    double addedUp(std::string_view text);
    double widthOf(char16_t sign);
    double whole(std::string_view text);

    QFont font_;
    QFontMetricsF metrics_{font_};
    std::vector<double> widths_;  ///< of single signs by their code, negative where not measured yet
    std::unordered_map<std::string, double> wholes_;  ///< in pixels
};

}  // namespace desk::desktop
