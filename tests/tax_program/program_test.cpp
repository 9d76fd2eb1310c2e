#include <gtest/gtest.h>

#include <QApplication>
#include <QDate>
#include <QFile>
#include <QInputDialog>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>

#include "support/cases.h"
#include "tax-program/program.h"

namespace desk::tax {
namespace {

/// Somebody who works at the device with the keyboard, as the scripts of this folder tell:
///
///     press → F2 Tab        keys
///     type → 盛远           into the field that has the keyboard
///     line → 0101 1 2 -     a line of the invoice: code, price, quantity and amount, "-" as proposed
///     put → 单价3 元        a text right into a field
///     click → 4             a row of the list of items
///     restart → at once
///     合计 → 0.29           what a field or a label shows
///     focus, selected, box, printed, asked
///                           which field has the keyboard, what is selected in it, which box is up and closed
///                           by Enter, what the journal has got since, what is asked and answered
class AtTheDevice : public testing::TestWithParam<std::string> {
  protected:
    AtTheDevice() { options.folder = folder.path(), options.journal = folder.path() + "/journal.txt"; }
    ~AtTheDevice() override {
        if (QWidget* box = QApplication::activeModalWidget()) box->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void logIn() {
        program = std::make_unique<Program>(options);
        program->start();
        ASSERT_TRUE(QTest::qWaitFor([&] { return program->login->isVisible(); }));
        ASSERT_TRUE(QTest::qWaitForWindowActive(program->login.get()));
        type("01");
        press("Tab");
        type("123456");
        press("Return");
        ASSERT_TRUE(program->main);
        ASSERT_TRUE(QTest::qWaitForWindowActive(program->main.get()));
    }
    static void press(const QString& keys) {
        for (const QString& key : keys.split(' ')) {
            QWidget* at = QApplication::focusWidget();
            const auto pressed = QKeySequence(key)[0];
            QTest::keyClick(at != nullptr ? at : QApplication::activeWindow(), pressed.key(),
                            pressed.keyboardModifiers());
        }
    }
    static void type(const QString& text) {
        // The test's own keys know Latin letters only.
        if (auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget())) field->insert(text);
    }
    static void fillLine(const QString& words) {
        const QStringList texts = words.split(' ');
        const QStringList keys{"Return", "Tab", "Tab", "F6"};
        for (qsizetype i = 0; i < keys.size(); ++i) {
            if (texts[i] != "-") type(texts[i]);
            press(keys[i]);
        }
    }
    static QString boxSays() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return "no box";
        const QString text = box->text();
        QTest::keyClick(box, Qt::Key_Return);
        return text;
    }
    QString printed() {
        QFile file(options.journal);
        const QString all = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
        QString since = all.mid(std::exchange(read_, all.size()));
        since.replace(QDate::currentDate().toString("yyyy-MM-dd"), "今天").replace('\n', '|');
        return since.isEmpty() ? "nothing" : since;
    }
    QWidget& named(const QString& name) const { return *program->main->findChild<QWidget*>(name); }

    void act(const QString& verb, const QString& what) {
        if (verb == "press") return press(what);
        if (verb == "type") return type(what);
        if (verb == "line") return fillLine(what);
        if (verb == "restart") return program.reset(), logIn();
        if (verb == "put") {
            const auto at = what.indexOf(' ');
            named(what.left(at)).setProperty("text", what.mid(at + 1));
            return;
        }
        if (verb == "click") {
            constexpr int height = 24;
            auto* list = program->main->invoice.itemList.viewport();
            return QTest::mouseClick(list, Qt::LeftButton, {},
                                     QPoint(20, height * what.toInt() - height / 2));
        }
        const auto shown = [&]() -> QString {
            if (verb == "box") return boxSays();
            if (verb == "printed") return printed();
            QWidget* focused = QApplication::focusWidget();
            if (verb == "focus") return focused == nullptr ? QString() : focused->objectName();
            if (verb == "selected") return focused->property("selectedText").toString();
            return named(verb).property("text").toString();
        };
        EXPECT_EQ(shown().toStdString(), what.toStdString());
    }
    static void answer(const QString& proposed, const QString& text) {
        auto* question = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(question, nullptr);
        EXPECT_EQ(question->textValue().toStdString(), proposed.toStdString());
        question->setTextValue(text == "nothing" ? QString() : text);
        question->accept();
    }

    QTemporaryDir folder;
    Options options;
    std::unique_ptr<Program> program;

  private:
    qsizetype read_ = 0;
};

TEST_P(AtTheDevice, FindsWhatTheScriptTells) {
    logIn();
    for (const auto& [where, fields] : casesIn("scripts/" + GetParam() + ".txt")) {
        SCOPED_TRACE(where);
        const auto text = [&](std::size_t i) { return QString::fromStdString(fields.at(i)); };
        if (fields.at(0) == "asked")
            answer(text(1), text(2));
        else
            act(text(0), text(1));
    }
}

INSTANTIATE_TEST_SUITE_P(Scripts, AtTheDevice,
                         testing::Values("printing", "items", "amounts", "incomplete", "taking_back", "roll"),
                         [](const auto& named) { return named.param; });

TEST(Amounts, AreSaidAsOnABanknote) {
    for (const auto& [where, fields] : casesIn("amounts.txt")) {
        EXPECT_EQ(inWords(std::stoll(fields.at(0))).toStdString(), fields.at(1)) << where;
        EXPECT_EQ(inFigures(std::stoll(fields.at(0))).toStdString(), fields.at(2)) << where;
    }
}

}  // namespace
}  // namespace desk::tax

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName("tax-program");
    // The log-in goes while the main window is not there yet.
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
