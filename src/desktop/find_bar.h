#pragma once

#include <QFrame>
#include <QPersistentModelIndex>
#include <functional>

#include "ui/find.h"

class QAbstractItemView;
class QLabel;
class QLineEdit;

namespace desk::desktop {

class RowDelegate;

/// How a view is searched, and how what was found is clicked.
struct Searched {
    std::function<QModelIndex(Wanted&, const QModelIndex& from, Towards)> find;
    std::function<void(const QModelIndex&)> click;
};

/// A line at the foot of a tree or grid, or at its head where it would cover what is found, in which a text
/// is typed that is looked for there. What is found is marked and comes into view, nothing is clicked; Enter
/// clicks it, F3 goes on, Escape closes the line.
class FindBar : public QFrame {
  public:
    FindBar(QAbstractItemView* view, RowDelegate* rows, Searched searched);

    /// The one of that view, null without one.
    static FindBar* of(const QAbstractItemView* view);

    void open();
    /// Goes on to the next or previous place; opens the line first where it is closed.
    void goOn(Towards towards);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// What the line does not take would move, and click, in the view that the bar lies in.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool takeKey(int key, Qt::KeyboardModifiers modifiers);
    void lookAgain();
    void show(const QModelIndex& found);
    void close();
    void take();
    QRect placeOf(const QModelIndex& index) const;
    QRect foot() const;
    void lay();

    QAbstractItemView* view_;
    RowDelegate* rows_;
    Searched searched_;
    QLineEdit* line_;
    QLabel* result_;
};

}  // namespace desk::desktop
