#include "desktop/screen_list.h"

#include <gtest/gtest.h>

#include <QLayout>
#include <set>

#include "desktop/by_hand.h"
#include "desktop/convert.h"
#include "session/main_window.h"
#include "ui/fields.h"
#include "ui/menu.h"

namespace desk::desktop {
namespace {

/// Opened by another screen, or by the program itself.
const std::set<std::string> withoutMenu = {"frmLogin",      "MDIForm1",    "Frmtu",          "frmToExcel",
                                           "frm房源一览表", "frm票据打印", "frm税控发票打印"};
/// Holds a number that nobody sees.
const std::set<std::string> neverShown = {"Text2"};

using ScreenList = ByHand;

bool isShown(const Control& control) {
    return dynamic_cast<const Timer*>(&control) == nullptr && !neverShown.contains(control.name());
}

TEST_F(ScreenList, EveryMenuEntryOpensAScreenOfTheListAndEveryScreenCanBeReached) {
    std::set<std::string> known;
    for (const KnownScreen& line : screenList())
        EXPECT_TRUE(known.insert(line.name).second) << line.name << " has two lines";
    std::set<std::string> reached = withoutMenu;
    for (const MenuEntry& entry : program.app.screens.get<MDIForm1>().entries()) {
        if (entry.tag.empty()) continue;
        EXPECT_TRUE(known.contains(entry.tag)) << entry.caption() << " opens " << entry.tag;
        EXPECT_TRUE(reached.insert(entry.tag).second) << entry.tag << " is in the menu twice";
    }
    for (const auto& name : known) EXPECT_TRUE(reached.contains(name)) << name << " cannot be reached";
}

TEST_F(ScreenList, EveryScreenIsMadeUnderItsName) {
    for (const KnownScreen& known : screenList()) EXPECT_EQ(known.make(program.app)->name(), known.name);
}

TEST_F(ScreenList, EveryControlHasAWidgetInTheFrameThatHoldsItAndANameOfItsOwn) {
    onEachScreen([](Screen& screen, QWidget& content) {
        std::set<std::string> names;
        for (const Control* control : screen.controls()) {
            EXPECT_TRUE(names.insert(control->name()).second) << control->name() << " is there twice";
            if (!isShown(*control)) continue;
            const auto widgets = content.findChildren<QWidget*>(text(control->name()));
            ASSERT_EQ(widgets.size(), 1) << control->name();
            // One that floats lies over all frames.
            if (widgets.front()->parentWidget() == &content && content.layout()->indexOf(widgets.front()) < 0)
                continue;
            const Control* around = nullptr;
            for (QWidget* at = widgets.front()->parentWidget(); at != nullptr && around == nullptr;
                 at = at->parentWidget())
                around = dynamic_cast<Frame*>(screen.control(utf8(at->objectName())));
            EXPECT_EQ(around, control->holder()) << control->name();
        }
    });
}

TEST_F(ScreenList, AScreenWithoutALineHasNoLayout) {
    struct Unknown : Screen {
        Unknown() : Screen("frmUnknown", "", WindowKind::child, 100, 100) {}
    } unknown;
    EXPECT_THROW(layoutOf(unknown), std::logic_error);
    EXPECT_THROW(layoutOf(program.app.screens.get<MDIForm1>()), std::logic_error);
}

}  // namespace
}  // namespace desk::desktop
