#include "desktop/text_widths.h"

#include <gtest/gtest.h>

#include "desktop/convert.h"

namespace desk::desktop {
namespace {

/// What is added up is what the whole text takes, in each font.
TEST(TextWidths, AreThoseOfTheWholeTexts) {
    TextWidths widths;
    for (const int size : {9, 16}) {
        QFont font;
        font.setPointSize(size);
        for (const char* shown :
             {"", "0", "13800010001", "盛远国际贸易有限公司", "招商12组", "第2次来访", "AVAT", "021-5888",
              "龥一", "Tower 3座", "（甲）", "𠮷野", "é", "\xE4\xBD", "\xFF"}) {
            const double whole = twips(QFontMetricsF(font).horizontalAdvance(text(shown)));
            EXPECT_NEAR(widths.of(font, shown), whole, 0.01) << shown;
            EXPECT_NEAR(widths.of(font, shown), whole, 0.01) << shown << " again";
        }
    }
}

}  // namespace
}  // namespace desk::desktop
