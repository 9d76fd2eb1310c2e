#include "desktop/date_binding.h"

#include <QDateEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>

#include "desktop/binding.h"
#include "desktop/keys.h"

namespace desk::desktop {

namespace {

constexpr const char* shownAs = "yyyy-MM-dd";

/// A day that can be typed from its first digit to its last, separators included, or part by part where it is
/// clicked.
class DateEdit : public QDateEdit {
  public:
    DateEdit() {
        setCalendarPopup(true);
        setDisplayFormat(shownAs);
        lineEdit()->installEventFilter(this);
        keepWheelForFocus(this);
    }

    /// A press selects the part under it, so that what is typed goes there; dragging selects nothing else.
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto type = event->type();
        const bool pressed = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
        if (watched == lineEdit() && (pressed || type == QEvent::MouseMove)) {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            if (pressed && mouse->button() == Qt::LeftButton)
                setSelectedSection(partAt(lineEdit()->cursorPositionAt(mouse->position().toPoint())));
            if (mouse->buttons() & Qt::LeftButton) return true;
        }
        return QDateEdit::eventFilter(watched, event);
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool withAlt = event->modifiers() & Qt::AltModifier;
        if (opensDropDown(*event)) return openCalendar();
        if (withAlt && event->key() == Qt::Key_Up) return;
        const QString key = event->text();
        if (key.size() == 1 && key[0].isDigit() && lineEdit()->selectedText() == text())
            setSelectedSection(YearSection);
        // Behind its last digit a part has been left already: its separator must not leave the next one too.
        const bool atStartOfPart = lineEdit()->selectedText() == sectionText(currentSection());
        if ((key == "-" || key == "/" || key == ".") && atStartOfPart) return event->accept();
        QDateEdit::keyPressEvent(event);
        if (isEnter(*event)) focusNextChild();
    }

  private:
    static Section partAt(int cursor) {
        constexpr int behindYear = 4;
        constexpr int behindMonth = 7;
        return cursor <= behindYear ? YearSection : cursor <= behindMonth ? MonthSection : DaySection;
    }

    /// Qt opens it for a press on the arrow alone.
    void openCalendar() {
        QStyleOptionComboBox parts;
        parts.initFrom(this);
        parts.editable = true;
        parts.subControls = QStyle::SC_All;
        const QPointF arrow =
            style()->subControlRect(QStyle::CC_ComboBox, &parts, QStyle::SC_ComboBoxArrow, this).center();
        QMouseEvent press(QEvent::MouseButtonPress, arrow, mapToGlobal(arrow), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        mousePressEvent(&press);
    }
};

}  // namespace

QWidget* dateWidget(DatePicker& picker) {
    auto* edit = new DateEdit;
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

}  // namespace desk::desktop
