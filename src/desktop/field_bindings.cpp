#include "desktop/field_bindings.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QDateEdit>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include "desktop/binding.h"

namespace desk::desktop {

namespace {

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// A day that can be typed from its first digit to its last, separators included.
class DateEdit : public QDateEdit {
  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const QString key = event->text();
        if (key.size() == 1 && key[0].isDigit() && lineEdit()->selectedText() == text())
            setSelectedSection(YearSection);
        // Behind its last digit a part has been left already: its separator must not leave the next one too.
        const bool atStartOfPart = lineEdit()->selectedText() == sectionText(currentSection());
        if ((key == "-" || key == "/" || key == ".") && atStartOfPart) return event->accept();
        QDateEdit::keyPressEvent(event);
    }
};

/// Enter moves on as Tab does, where the box says so.
class LineEdit : public QLineEdit {
  public:
    explicit LineEdit(TextBox& box) : box_(box) {}

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!isEnter(*event)) return QLineEdit::keyPressEvent(event);
        enter([this] { box_.pressEnter(); });
        if (box_.enterMovesOn) focusNextChild();
    }

  private:
    TextBox& box_;
};

/// Enter presses it, also outside of a dialog.
class PushButton : public QPushButton {
  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (isEnter(*event)) return click();
        QPushButton::keyPressEvent(event);
    }
};

class ColourArea : public QWidget {
  public:
    explicit ColourArea(Swatch& swatch) : swatch_(swatch) { setMinimumSize(60, 24); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(colour(swatch_.colour()));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

  private:
    Swatch& swatch_;
};

QWidget* lineWidget(TextBox& box) {
    auto* edit = new LineEdit(box);
    if (box.style() == TextStyle::password) edit->setEchoMode(QLineEdit::Password);
    const auto show = [&box, edit] {
        const QString shown = text(box.text());
        if (edit->text() != shown) {
            edit->setText(shown);
            edit->setCursorPosition(0);
        }
        edit->setReadOnly(box.locked());
    };
    show();
    follow(edit, box.touched, show);
    follow(edit, box.selectAllAsked, [edit] { edit->selectAll(); });
    QObject::connect(edit, &QLineEdit::textEdited, edit,
                     [&box](const QString& typed) { enter([&] { box.type(utf8(typed)); }); });
    return edit;
}

/// The database holds lines ended as its other programs end them.
std::string storedLines(const QString& typed) {
    return utf8(QString(typed).replace('\n', "\r\n"));
}

QString shownLines(const TextBox& box) {
    return text(box.text()).replace("\r\n", "\n");
}

QWidget* paragraphWidget(TextBox& box) {
    auto* edit = new QPlainTextEdit;
    edit->setTabChangesFocus(true);
    const auto show = [&box, edit] {
        if (edit->toPlainText() != shownLines(box)) edit->setPlainText(shownLines(box));
        edit->setReadOnly(box.locked());
    };
    show();
    follow(edit, box.touched, show);
    follow(edit, box.selectAllAsked, [edit] { edit->selectAll(); });
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [&box, edit] {
        if (edit->toPlainText() != shownLines(box))
            enter([&] { box.type(storedLines(edit->toPlainText())); });
    });
    return edit;
}

}  // namespace

QWidget* labelWidget(Label& label) {
    auto* shown = new QLabel;
    const auto show = [&label, shown] { shown->setText(text(label.caption())); };
    show();
    follow(shown, label.touched, show);
    return shown;
}

QWidget* textBoxWidget(TextBox& box) {
    return box.style() == TextStyle::paragraph ? paragraphWidget(box) : lineWidget(box);
}

QWidget* buttonWidget(Button& button) {
    auto* shown = new PushButton;
    const auto show = [&button, shown] { shown->setText(text(button.caption())); };
    show();
    follow(shown, button.touched, show);
    QObject::connect(shown, &QPushButton::clicked, shown, [&button] { enter([&] { button.click(); }); });
    return shown;
}

QWidget* checkBoxWidget(CheckBox& box) {
    auto* shown = new QCheckBox(text(box.caption()));
    const auto show = [&box, shown] { shown->setChecked(box.checked()); };
    show();
    follow(shown, box.touched, show);
    QObject::connect(shown, &QCheckBox::clicked, shown, [&box] { enter([&] { box.click(); }); });
    return shown;
}

QWidget* optionWidget(OptionButton& option) {
    auto* shown = new QRadioButton(text(option.caption()));
    // The group is the screen's, not that of the widgets around it.
    shown->setAutoExclusive(false);
    const auto show = [&option, shown] { shown->setChecked(option.chosen()); };
    show();
    follow(shown, option.touched, show);
    QObject::connect(shown, &QRadioButton::clicked, shown, [&option, show] {
        enter([&] { option.click(); });
        show();
    });
    return shown;
}

QWidget* dateWidget(DatePicker& picker) {
    auto* edit = new DateEdit;
    edit->setCalendarPopup(true);
    edit->setDisplayFormat("yyyy-MM-dd");
    const auto show = [&picker, edit] {
        // Writing back what is being typed would lose the keys to come.
        if (edit->date() == date(picker.value())) return;
        const QSignalBlocker quiet(edit);
        edit->setDate(date(picker.value()));
    };
    show();
    follow(edit, picker.touched, show);
    QObject::connect(edit, &QDateEdit::userDateChanged, edit,
                     [&picker](QDate day) { enter([&] { picker.pick(moment(day)); }); });
    return edit;
}

QWidget* calendarWidget(MonthCalendar& calendar) {
    auto* shown = new QCalendarWidget;
    shown->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    shown->setGridVisible(true);
    const auto show = [&calendar, shown] { shown->setSelectedDate(date(calendar.value())); };
    show();
    follow(shown, calendar.touched, show);
    QObject::connect(shown, &QCalendarWidget::clicked, shown,
                     [&calendar](QDate day) { enter([&] { calendar.clickDay(moment(day)); }); });
    QObject::connect(shown, &QCalendarWidget::activated, shown,
                     [&calendar](QDate day) { enter([&] { calendar.clickDay(moment(day)); }); });
    return shown;
}

QWidget* swatchWidget(Swatch& swatch) {
    auto* area = new ColourArea(swatch);
    follow(area, swatch.touched, [area] { area->update(); });
    return area;
}

}  // namespace desk::desktop
