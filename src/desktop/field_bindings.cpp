#include "desktop/field_bindings.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>

#include "desktop/binding.h"
#include "desktop/busy.h"
#include "desktop/mnemonics.h"
#include "desktop/pressed.h"

namespace desk::desktop {

namespace {

class PushButton : public Pressed<QPushButton> {
  public:
    explicit PushButton(const Button& button) : button_(button) {}

  protected:
    void initStyleOption(QStyleOptionButton* option) const override {
        QPushButton::initStyleOption(option);
        if (button_.role() == ButtonRole::main) option->features |= QStyleOptionButton::DefaultButton;
    }

  private:
    const Button& button_;
};

/// Comes up at its day, however far it was leafed away from it before.
class Months : public QCalendarWidget {
  public:
    explicit Months(MonthCalendar& calendar) : calendar_(calendar) {}
    void showDay() { setSelectedDate(date(calendar_.value())); }

  protected:
    void showEvent(QShowEvent* event) override {
        if (isBound(this)) showDay();
        QCalendarWidget::showEvent(event);
    }

  private:
    MonthCalendar& calendar_;
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

}  // namespace

QWidget* labelWidget(Label& label) {
    auto* shown = new QLabel;
    const auto show = [&label, shown] { shown->setText(text(label.caption())); };
    show();
    follow(shown, label.touched, show);
    return shown;
}

QWidget* buttonWidget(Button& button) {
    auto* shown = new PushButton(button);
    shown->setProperty(mainButtonProperty, button.role() == ButtonRole::main);
    const auto show = [&button, shown] {
        shown->setText(withMnemonic(text(button.caption())));
        shown->setAccessibleName(text(button.caption()));
    };
    show();
    follow(shown, button.touched, show);
    QObject::connect(shown, &QPushButton::clicked, shown, [&button] {
        enter([&] {
            const Busy busy;
            button.click();
        });
    });
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
    QObject::connect(shown, &QRadioButton::clicked, shown, [&option, shown, show] {
        enter([&] { option.click(); });
        if (isBound(shown)) show();
    });
    return shown;
}

QWidget* calendarWidget(MonthCalendar& calendar) {
    auto* shown = new Months(calendar);
    shown->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    shown->setGridVisible(true);
    // Its days stand in a view of their own, to which the wheel turns.
    for (auto* days : shown->findChildren<QAbstractItemView*>()) keepWheelForFocus(days);
    shown->showDay();
    follow(shown, calendar.touched, [shown] { shown->showDay(); });
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
