#include "printing/counter.h"

#include <signal.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "db/recordset.h"
#include "money/deposits.h"

namespace desk {

namespace {

namespace fs = std::filesystem;

constexpr auto oftenEnough = std::chrono::milliseconds(20);
/// Patience looks more often.
constexpr auto betweenTicks = std::chrono::milliseconds(60);

/// Empty also for a process that ends just now.
std::string contentOf(const fs::path& file) {
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

}  // namespace

Counter::Counter() {
    tell("TAX_PROGRAM_FOLDER", qPrintable(folder_.path()));
    program_.emplace();
    app().主连接.open(
        std::string("Initial Catalog='") + std::getenv("COUNTER_DATABASE") + "';Data Source='(embedded)'",
        std::chrono::seconds(30));
    Recordset cashier(app().主连接,
                      "Select 工号,姓名 From 员工档案 Inner Join SKOperator On 员工档案.工号=OperatorNum");
    app().session.登录工号 = cashier["工号"].text();
    app().session.登录姓名 = cashier["姓名"].text();
    app().session.登录部门编号 = "103";
    patience_.emplace();
    QObject::connect(&answering_, &QTimer::timeout, &answering_, [this] { answerBox(); });
    answering_.start(oftenEnough);
    // The run waits for ticks of the screen's timer, and patience for the other program: no need to wait for
    // both.
    QObject::connect(&hurrying_, &QTimer::timeout, &hurrying_, [this] {
        auto* screen = app().screens.loaded(Frm税控发票打印::screenName);
        auto* timer = screen == nullptr ? nullptr : dynamic_cast<Timer*>(screen->control("计时"));
        if (timer != nullptr && timer->enabled()) timer->tick();
    });
    hurrying_.start(betweenTicks);
}

Counter::~Counter() {
    answering_.stop();
    hurrying_.stop();
    patience_.reset();
    program_.reset();
    for (const pid_t process : devices()) ::kill(process, SIGKILL);
    EXPECT_TRUE(QTest::qWaitFor([this] { return devices().empty(); }));
    for (const char* variable : told_) qunsetenv(variable);
}

void Counter::tell(const char* variable, const char* value) {
    qputenv(variable, value);
    told_.push_back(variable);
}

Frm税控发票打印& Counter::open(const char* payer, std::vector<开票内容::项> lines) {
    auto& screen = app().screens.get<Frm税控发票打印>();
    screen.tag = "意向金收取";
    screen.填写({payer, std::move(lines)});
    app().desktop.show(screen);
    screen.样张.票据本.setIndex(0);
    EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeWindow() != nullptr; }));
    return screen;
}

QStringList Counter::print(Frm税控发票打印& screen, QStringList answers) {
    answers_ = std::move(answers);
    said_.clear();
    screen.打印发票.click();
    EXPECT_TRUE(answers_.isEmpty()) << "was not asked";
    return said_;
}

void Counter::answerBox() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    said_ << box->text();
    if (answers_.isEmpty()) return box->reject();
    const QString answer = answers_.takeFirst();
    for (QAbstractButton* button : box->buttons())
        if (button->text().startsWith(answer)) return button->click();
    ADD_FAILURE() << "no answer " << answer.toStdString() << " to " << box->text().toStdString();
    box->buttons().front()->click();
}

std::string Counter::handedBack() {
    return app().screens.get<Frm意向金收取>().票据打印保存.tag;
}

QStringList Counter::journal() const {
    QFile file(folder_.path() + "/journal.txt");
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
}

QStringList Counter::printedNumbers() const {
    return journal().filter("发票号码：").replaceInStrings("发票号码：", "");
}

std::vector<pid_t> Counter::devices() const {
    const std::string ours = "TAX_PROGRAM_FOLDER=" + folder_.path().toStdString();
    std::vector<pid_t> found;
    std::error_code gone;
    for (const auto& process : fs::directory_iterator("/proc", gone))
        if (contentOf(process.path() / "comm") == "tax-program\n" &&
            contentOf(process.path() / "environ").find(ours) != std::string::npos)
            found.push_back(std::stoi(process.path().filename().string()));
    return found;
}

}  // namespace desk
