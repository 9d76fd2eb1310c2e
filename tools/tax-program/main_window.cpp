#include "tax-program/main_window.h"

#include <QInputDialog>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace desk::tax {

MainWindow::MainWindow(Device& device) : invoice(device), takeBack(device), device_(device) {
    setWindowTitle(device.options().title);
    resize(960, 440);
    news.setObjectName("结果");
    news.setAlignment(Qt::AlignCenter);
    auto* middle = new QVBoxLayout(&restPage_);
    middle->addWidget(&news);
    for (QWidget* page : {&restPage_, static_cast<QWidget*>(&invoice), static_cast<QWidget*>(&takeBack)})
        pages_.addWidget(page);
    setCentralWidget(&pages_);
    addActions();
    statusBar()->addWidget(new QLabel("操作员：" + device.options().user));
    statusBar()->addWidget(&next_, 1);
    statusBar()->addPermanentWidget(new QLabel("开票流水：" + device.options().journal));

    invoice.printed = [this](const Invoice& printed) {
        rest(QString("发票 %1 已打印\n\n%2\n合计 %3 元")
                 .arg(printed.number, printed.payer, inFigures(printed.total())));
    };
    takeBack.takenBack = [this](const QString& number) { rest(QString("发票 %1 已退票").arg(number)); };
    rest("按 F2 新开发票");
}

void MainWindow::addActions() {
    auto* bar = addToolBar("功能");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    const auto add = [&](const QString& text, const QKeySequence& key, auto action) {
        auto* made = bar->addAction(text + " " + key.toString());
        made->setShortcut(key);
        connect(made, &QAction::triggered, this, action);
    };
    add("新开发票", Qt::Key_F2, [this] {
        show(invoice);
        invoice.begin();
    });
    add("打印", Qt::Key_F9, [this] {
        if (pages_.currentWidget() == &invoice) invoice.print();
    });
    add("退票", Qt::Key_F5, [this] {
        show(takeBack);
        takeBack.begin();
    });
    add("装入发票卷", Qt::Key_F8, [this] { loadRoll(); });
    add("退出", QKeySequence("Ctrl+Q"), [this] { close(); });
}

void MainWindow::loadRoll() {
    auto* question = new QInputDialog(this);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setWindowTitle("装入发票卷");
    question->setLabelText("发票卷的起始号码：");
    question->setTextValue(device_.number());
    question->setOkButtonText("确定");
    question->setCancelButtonText("取消");
    connect(question, &QInputDialog::textValueSelected, this, [this](const QString& number) {
        if (number.isEmpty()) return;
        device_.load(number);
        rest("已装入起始号码为 " + number + " 的发票卷");
    });
    question->open();
}

void MainWindow::show(QWidget& page) {
    pages_.setCurrentWidget(&page);
}

void MainWindow::rest(const QString& text) {
    news.setText(text);
    next_.setText("下一张发票：" + device_.number());
    show(restPage_);
}

}  // namespace desk::tax
