#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>

#include "tax-program/program.h"

namespace desk::tax {

/// Somebody who works at the device with the keyboard, as a script does.
struct AtTheDevice : testing::Test {
    AtTheDevice() { options.folder = folder.path(), options.journal = folder.path() + "/journal.txt"; }
    ~AtTheDevice() override {
        if (QWidget* box = QApplication::activeModalWidget()) box->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void start() {
        program = std::make_unique<Program>(options);
        program->start();
        ASSERT_TRUE(QTest::qWaitFor([&] { return program->login->isVisible(); }));
        ASSERT_TRUE(QTest::qWaitForWindowActive(program->login.get()));
    }
    void logIn() {
        start();
        type("01");
        press(Qt::Key_Tab);
        type("123456");
        press(Qt::Key_Return);
        ASSERT_TRUE(program->main);
        ASSERT_TRUE(QTest::qWaitForWindowActive(program->main.get()));
    }
    /// A new invoice with that payer, up to the first line.
    void begin(const char* payer) {
        press(Qt::Key_F2);
        press(Qt::Key_Tab);
        type(payer);
        press(Qt::Key_F6);
    }
    void fillLine(const char* code, const char* price, const char* quantity, const char* amount) {
        type(code);
        if (*code != '\0') press(Qt::Key_Return);
        type(price);
        press(Qt::Key_Tab);
        type(quantity);
        press(Qt::Key_Tab);
        type(amount);
        press(Qt::Key_F6);
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QWidget* at = QApplication::focusWidget();
        QTest::keyClick(at != nullptr ? at : QApplication::activeWindow(), key, with);
    }
    static void type(const char* text) {
        // The test's own keys know Latin letters only.
        if (auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget()); field && *text != '\0')
            field->insert(text);
    }
    static QString focused() {
        return QApplication::focusWidget() == nullptr ? QString() : QApplication::focusWidget()->objectName();
    }
    /// The text of the box that is up, which is closed by Enter.
    static QString boxSays() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return {};
        const QString text = box->text();
        QTest::keyClick(box, Qt::Key_Return);
        return text;
    }
    QStringList journal() const {
        QFile file(options.journal);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split('\n') : QStringList();
    }
    InvoiceForm& form() const { return program->main->invoice; }
    QString news() const { return program->main->news.text(); }

    QTemporaryDir folder;
    Options options;
    std::unique_ptr<Program> program;
};

}  // namespace desk::tax
