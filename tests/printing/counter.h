#pragma once

#include <gtest/gtest.h>
#include <signal.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "db/recordset.h"
#include "desktop/program.h"
#include "money/deposits.h"
#include "money/tax_invoice.h"
#include "tour/patience.h"

namespace desk {

/// The cashier's counter of the sample: the whole program on a display of its own, and beside it the program
/// that prints invoices, which is started, found and typed into as on any desktop. Boxes are answered as was
/// told before, those that were not foreseen by Escape.
class Counter : public testing::Test {
  protected:
    Counter() {
        tell("TAX_PROGRAM_FOLDER", qPrintable(folder_.path()));
        program_.emplace();
        app().主连接.open(
            std::string("Initial Catalog='") + std::getenv("COUNTER_DATABASE") + "';Data Source='(embedded)'",
            std::chrono::seconds(30));
        Recordset cashier(
            app().主连接,
            "Select 工号,姓名 From 员工档案 Inner Join SKOperator On 员工档案.工号=OperatorNum");
        app().session.登录工号 = cashier["工号"].text();
        app().session.登录姓名 = cashier["姓名"].text();
        app().session.登录部门编号 = "103";
        patience_.emplace();
        QObject::connect(&answering_, &QTimer::timeout, &answering_, [this] { answerBox(); });
        answering_.start(20);
        QObject::connect(&hurrying_, &QTimer::timeout, &hurrying_, [this] { hurry(); });
        hurrying_.start(60);  // patience looks more often
    }
    ~Counter() override {
        answering_.stop();
        hurrying_.stop();
        patience_.reset();
        program_.reset();
        for (const pid_t process : devices()) ::kill(process, SIGKILL);
        EXPECT_TRUE(QTest::qWaitFor([this] { return devices().empty(); }));
        for (const char* variable : told_) qunsetenv(variable);
    }

    /// How the program that prints is to behave from its next start on, as its variables say it.
    void tell(const char* variable, const char* value) {
        qputenv(variable, value);
        told_.push_back(variable);
    }
    /// The print screen, with lines to print, and the book that lies in the device.
    Frm税控发票打印& open(const char* payer = "盛远国际贸易有限公司",
                          std::vector<开票内容::项> lines = {
                              {"租金", "YJ01", "50000.00", "1.00", "50000.00"}}) {
        auto& screen = app().screens.get<Frm税控发票打印>();
        screen.tag = "意向金收取";
        screen.填写({payer, std::move(lines)});
        app().desktop.show(screen);
        screen.样张.票据本.setIndex(0);
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeWindow() != nullptr; }));
        return screen;
    }
    /// Presses 打印发票; comes back when the run has ended, with the texts of the boxes.
    QStringList print(Frm税控发票打印& screen, QStringList answers) {
        answers_ = std::move(answers);
        said_.clear();
        screen.打印发票.click();
        EXPECT_TRUE(answers_.isEmpty()) << "was not asked";
        return said_;
    }

    bool isOpen() { return app().screens.loaded(Frm税控发票打印::screenName) != nullptr; }
    /// What the screen that takes deposits was handed back.
    std::string handedBack() { return app().screens.get<Frm意向金收取>().票据打印保存.tag; }
    /// What was printed: a line a field.
    QStringList journal() const {
        QFile file(folder_.path() + "/journal.txt");
        if (!file.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    }
    QStringList printedNumbers() const {
        return journal().filter("发票号码：").replaceInStrings("发票号码：", "");
    }
    /// The processes of the program that prints.
    std::vector<pid_t> devices() const {
        const std::string ours = "TAX_PROGRAM_FOLDER=" + folder_.path().toStdString();
        std::vector<pid_t> found;
        std::error_code gone;
        for (const auto& process : std::filesystem::directory_iterator("/proc", gone))
            if (contentOf(process.path() / "comm") == "tax-program\n" &&
                contentOf(process.path() / "environ").find(ours) != std::string::npos)
                found.push_back(std::stoi(process.path().filename().string()));
        return found;
    }

    Application& app() { return program_->app; }

  private:
    void answerBox() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        said_ << box->text();
        if (answers_.isEmpty()) return box->reject();
        const QString answer = answers_.takeFirst();
        for (QAbstractButton* button : box->buttons())
            if (button->text().startsWith(answer)) return button->click();
        ADD_FAILURE() << "no answer " << answer.toStdString() << " to " << box->text().toStdString();
        box->reject();
    }
    /// The run waits for ticks of the screen's timer, and patience for the other program: no need to wait for
    /// both.
    void hurry() {
        auto* screen = app().screens.loaded(Frm税控发票打印::screenName);
        auto* timer = screen == nullptr ? nullptr : dynamic_cast<Timer*>(screen->control("计时"));
        if (timer != nullptr && timer->enabled()) timer->tick();
    }
    /// Empty also for a process that ends just now.
    static std::string contentOf(const std::filesystem::path& file) {
        std::ostringstream content;
        content << std::ifstream(file, std::ios::binary).rdbuf();
        return content.str();
    }

    QTemporaryDir folder_;
    std::optional<desktop::Program> program_;
    std::optional<tour::Patience> patience_;
    QTimer answering_;
    QTimer hurrying_;
    QStringList answers_;
    QStringList said_;
    std::vector<const char*> told_;
};

}  // namespace desk
