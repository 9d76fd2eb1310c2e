#include "tax-program/look.h"

#include <QApplication>
#include <QFont>
#include <QStyleFactory>

namespace desk::tax {

namespace {

constexpr const char* sheet = R"(
QWidget { color: #1f2933; }
QMainWindow, QDialog, LoginWindow { background: #f4f6f9; }
QToolBar { background: #1f4e79; border: none; padding: 4px 8px; spacing: 6px; }
QToolBar QToolButton { color: white; padding: 6px 14px; border-radius: 3px; font-weight: bold; }
QToolBar QToolButton:hover { background: #2f6ba3; }
QToolBar QToolButton:pressed { background: #163a5b; }
QLabel#标题 { background: #1f4e79; color: white; font-size: 17px; font-weight: bold; padding: 14px 36px; }
QLabel[caption="true"] { background: #e3ebf4; border: 1px solid #c2d0df; padding: 5px 6px; }
QLabel#结果 { font-size: 22px; color: #1f4e79; }
QLabel#合计, QLabel#大写 { font-weight: bold; color: #a3341c; }
QLineEdit { background: white; border: 1px solid #b6c2cf; border-radius: 2px; padding: 5px; }
QLineEdit:focus { border: 1px solid #2f6ba3; background: #fffbe6; }
QLineEdit:read-only { font-weight: bold; color: #a3341c; }
QListWidget { background: white; border: 1px solid #c2d0df; }
QStatusBar { background: #e3ebf4; }
QPushButton { padding: 6px 18px; }
)";

}  // namespace

void dress() {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QFont font = QApplication::font();
    font.setFamilies({"Noto Sans CJK SC", "Source Han Sans SC", "WenQuanYi Micro Hei", font.family()});
    QApplication::setFont(font);
    qApp->setStyleSheet(sheet);
}

}  // namespace desk::tax
