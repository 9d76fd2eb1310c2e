#include "tax-program/login_window.h"

#include <QEvent>
#include <QFormLayout>
#include <QPushButton>
#include <QTimer>

namespace desk::tax {

LoginWindow::LoginWindow(const Options& options) : options_(options) {
    // Not the main window's title: who looks for that one must not find this.
    setWindowTitle("用户登录 - " + options.title);
    password.setEchoMode(QLineEdit::Password);
    message.setObjectName("提示");
    message.setText("请输入用户名和密码");

    auto* head = new QLabel(options.title);
    head->setObjectName("标题");
    auto* enter = new QPushButton("登 录");
    enter->setFocusPolicy(Qt::NoFocus);
    auto* fields = new QFormLayout;
    fields->setContentsMargins(36, 20, 36, 20);
    fields->setVerticalSpacing(12);
    fields->addRow("用户名", &user);
    fields->addRow("密　码", &password);
    fields->addRow(&message);
    fields->addRow(enter);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(head);
    all->addLayout(fields);
    setFixedSize(380, 250);

    user.confirmed = password.confirmed = [this] { logIn(); };
    connect(enter, &QPushButton::clicked, this, [this] { logIn(); });
}

void LoginWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // Whoever starts the program may ask for a minimised window; the log-in is of no use in the task bar.
    if (event->type() == QEvent::WindowStateChange && isMinimized())
        QTimer::singleShot(0, this, [this] {
            showNormal();
            activateWindow();
        });
}

void LoginWindow::logIn() {
    if (password.text().isEmpty() && user.hasFocus()) return password.setFocus();
    if (user.text() == options_.user && password.text() == options_.password) return loggedIn();
    message.setText("用户名或密码不正确，请重新输入");
    message.setStyleSheet("color: #b3261e;");
    password.setFocus();
    password.selectAll();
}

}  // namespace desk::tax
