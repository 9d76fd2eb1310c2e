#include <QMdiArea>
#include <QPushButton>
#include <QScreen>

#include "analysis/classification.h"
#include "customers/registration.h"
#include "desktop/in_windows.h"
#include "desktop/screen_windows.h"
#include "intent/unit_map.h"

namespace desk::desktop {
namespace {

/// Whether what must be seen has room on the displays that people have.
class Room : public InWindows {
  protected:
    void resize(int width, int height) {
        main->showNormal();
        main->resize(width, height);
        QApplication::processEvents();
    }
};

/// The main window is as large as a screen of 1366 × 768 at 125 %, less its title and a panel of the system.
TEST_F(Room, IsThereForEachButtonOfEveryScreenOnASmallDisplay) {
    resize(1093, 554);
    for (const KnownScreen& known : screenList()) {
        // A dialog may have something to say as it opens.
        if (known.make(*app)->kind() != WindowKind::child) continue;
        SCOPED_TRACE(known.name);
        bring(known.name);
        QMdiSubWindow* shown = child(known.name);
        EXPECT_TRUE(area().contains(shown->geometry())) << shown->width() << " × " << shown->height();
        const auto everyButton = [&] {
            QApplication::processEvents();
            for (QPushButton* button : shown->widget()->findChildren<QPushButton*>()) {
                if (!button->isVisibleTo(shown)) continue;
                EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect())
                    << utf8(button->objectName());
            }
        };
        everyButton();
        Screen& screen = app->screens.get(known.name);
        for (Control* control : screen.controls())
            if (auto* strip = dynamic_cast<TabStrip*>(control))
                for (int tab = 1; tab < static_cast<int>(strip->titles().size()); ++tab) {
                    strip->setIndex(tab);
                    everyButton();
                }
        unload(screen);
    }
}

TEST_F(Room, IsThereForEachChildWhateverIsOpenAndShrinksWithTheMainWindow) {
    resize(1280, 776);
    const auto names = {"frmAbout", Frm客户分类统计::screenName, "frm每周来客统计分析", "frm意向金收取"};
    // Whatever one finds, the next has less room beside.
    for (const char* name : names) {
        bring(name);
        EXPECT_TRUE(area().contains(child(name)->geometry())) << name << " lies at " << child(name)->y();
    }
    resize(800, 500);
    for (const char* name : names)
        EXPECT_EQ(child(name)->size().boundedTo(area().size()), child(name)->size()) << name;
}

TEST_F(Room, IsLeftByAWindowOfItsOwn) {
    struct Huge : Screen {
        Huge() : Screen("huge", "大", WindowKind::dialog, 90000, 90000) {}
    } huge;
    const DialogWindow window(app->screens, huge, new QWidget);
    EXPECT_EQ(window.size().boundedTo(window.screen()->availableSize()), window.size());
}

/// A screen of 1280 × 800, less the title of the main window.
TEST_F(Room, IsThereAtTheUsualSizeForWhatMustBeReadInFull) {
    resize(1280, 776);
    bring(Frm引驻客户信息登记::screenName);
    auto& registration = app->screens.get<Frm引驻客户信息登记>();
    const auto holds = [&](const Control& field, const char* text) {
        constexpr int frameAndMargins = 12;
        const QWidget* line = widget(main, field);
        return line->fontMetrics().horizontalAdvance(text) <= line->width() - frameAndMargins;
    };
    for (int page = 0; page < 3; ++page) {
        registration.页签.click(page);
        QApplication::processEvents();
        const auto& fields = *registration.pages()[static_cast<std::size_t>(page)];
        EXPECT_TRUE(holds(fields.登记编号, "<保存时自动生成编号>")) << page;
        if (fields.中介) {
            EXPECT_TRUE(holds(fields.中介->中介公司名称, "上海德佑房地产经纪有限责任公司"));
        }
    }
    bring(Frm房源一览表::screenName);
    auto& map = app->screens.get<Frm房源一览表>();
    map.统计.show(std::vector<楼域统计>(5));
    map.地图框.setVisible(false);
    QApplication::processEvents();
    const QWidget* last = widget(main, map.统计.块[4]);
    EXPECT_EQ(last->visibleRegion().boundingRect(), last->rect());
}

}  // namespace
}  // namespace desk::desktop
