#include <QFileDialog>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdlib>

#include "desktop/sheet_windows.h"
#include "support/failures.h"

namespace desk::desktop {
namespace {

/// What stands before the main window until it is answered, and what becomes of the main window then.
class Modal : public SheetWindows {
  protected:
    /// Shows the other sheet; once it is up and `meanwhile` is over it goes.
    void showOther(const std::function<void(QWidget&)>& meanwhile) {
        QTimer::singleShot(0, qApp, [&] {
            meanwhile(*QApplication::activeModalWidget());
            unload(app->screens.get("other"));
        });
        enter([&] { desktop->showModally(app->screens.get("other")); });
    }
};

TEST_F(Modal, IsWhatWasNotShownBefore) {
    Sheet& sheet = open("sheet");
    EXPECT_EQ(failureOf([&] { desktop->showModally(sheet); }), 400);
    // A child that was not shown may be, and one that has gone by itself is not waited for.
    Screen& other = app->screens.get("other");
    showOther([](QWidget&) {});
    enter([&] { desktop->showModally(other); });
    EXPECT_EQ(app->screens.loaded("other"), nullptr);
}

TEST_F(Modal, ComesUpAmidTheMainWindowOrWhereItSays) {
    const auto shown = [&] {
        QRect place;
        showOther([&](QWidget& window) { place = window.frameGeometry(); });
        return place;
    };
    main->move(40, 30);
    const QPoint off = shown().center() - main->geometry().center();
    // Frame and title bar count, as wide as they may be.
    EXPECT_LE(std::abs(off.x()), 4);
    EXPECT_LE(std::abs(off.y()), 30);
    main->move(-3000, -2000);
    EXPECT_EQ(shown().topLeft(), main->screen()->availableGeometry().topLeft());
    main->move(40, 30);
    step = [](Sheet& sheet) { sheet.moveTo(1500, 750); };
    EXPECT_EQ(shown().topLeft(), main->mapToGlobal(QPoint(100, 50)));
}

TEST_F(Modal, LeavesTheMainWindowInFrontOfWhatStoodThere) {
    QWidget inFront;
    showOther([&](QWidget&) {
        inFront.show();
        inFront.raise();
        inFront.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&inFront));
    });
    EXPECT_TRUE(QTest::qWaitForWindowActive(main));
}

TEST_F(Modal, APressIsBusyUntilAPersonIsAsked) {
    const auto isBusy = [] { return QApplication::overrideCursor() != nullptr; };
    Sheet& sheet = open("sheet");
    std::vector<bool> seen;
    sheet.press.clicked += [&] {
        seen.push_back(isBusy());
        QTimer::singleShot(0, main, [&] {
            seen.push_back(isBusy());
            QApplication::activeModalWidget()->close();
        });
        desktop->messageBox({"text", "title"});
        seen.push_back(isBusy());
    };
    QTest::mouseClick(at(sheet.press), Qt::LeftButton);
    EXPECT_EQ(seen, std::vector<bool>({true, false, true}));
    EXPECT_FALSE(isBusy());
}

TEST_F(Modal, AskedForADeletionEnterSaysNoAndEscapeAlways) {
    const auto answered = [](Qt::Key key, const std::function<bool()>& ask) {
        QTimer::singleShot(0, qApp, [key] {
            EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; }));
            QTest::keyClick(QApplication::activeModalWidget(), key);
        });
        return ask();
    };
    const auto other = [&] {
        const Message question{"要保存吗？", "提醒", Icon::question, Buttons::yesNo, Answer::yes};
        return desktop->messageBox(question) == Answer::yes;
    };
    EXPECT_FALSE(answered(Qt::Key_Return, [&] { return app->confirmDeletion("确定要删除该信息吗？"); }));
    EXPECT_TRUE(answered(Qt::Key_Return, other));
    EXPECT_FALSE(answered(Qt::Key_Escape, other));
}

TEST_F(Modal, AFileToSaveIsProposedAndMayBeANewOne) {
    const QTemporaryDir folder;
    const std::string path = utf8(folder.path());
    for (const FilePurpose purpose : {FilePurpose::save, FilePurpose::open}) {
        bool saves = false;
        QTimer::singleShot(0, qApp, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            saves = dialog->acceptMode() == QFileDialog::AcceptSave;
            QTest::keyClick(dialog, saves ? Qt::Key_Return : Qt::Key_Escape);
        });
        const auto file = desktop->chooseFile({path, "表|*.xls", purpose, "统计.xls"});
        EXPECT_EQ(saves, purpose == FilePurpose::save);
        EXPECT_EQ(file.value_or(""), saves ? path + "/统计.xls" : "");
    }
}

}  // namespace
}  // namespace desk::desktop
