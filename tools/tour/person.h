#pragma once

#include <QColor>
#include <QString>
#include <stdexcept>

class QAbstractItemView;
class QModelIndex;
class QWidget;

namespace desk::tour {

/// Something that a person looks for is not on the screen.
struct NotThere : std::runtime_error {
    explicit NotThere(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// Works the real windows as a person does: finds a control by its name and sends it mouse and keyboard
/// events. Every call fails with NotThere when the control is missing, hidden or disabled.
class Person {
  public:
    /// A click in the middle of a button or box.
    void click(const QString& control);
    void doubleClickLine(const QString& list, int line);
    /// Replaces the text of a field; Chinese text comes as from an input method.
    void type(const QString& field, const QString& text);
    void pressEnter(const QString& field);
    /// Opens the combo and clicks the line of that text.
    void pick(const QString& combo, const QString& text);
    /// Clicks the line of that text in a list.
    void clickLine(const QString& list, const QString& text);
    /// Clicks the tree's node whose text begins so.
    void clickNode(const QString& tree, const QString& beginning);
    /// Clicks the box before the tree's node whose text begins so.
    void tickNode(const QString& tree, const QString& beginning);
    /// Clicks a cell; rows count from 0 behind the header.
    void clickCell(const QString& grid, int row, int column);
    /// Clicks the row that has that text in that column.
    void clickRow(const QString& grid, int column, const QString& text);
    /// Clicks the first `count` cells of that colour.
    void clickColoured(const QString& grid, const QColor& colour, int count);
    void clickTab(const QString& strip, const QString& title);
    void choose(const QString& topEntry, const QString& entry);
    /// Moves the pointer over a point of a drawing, as parts of its width and height.
    void pointAt(const QString& canvas, double across, double down);
    /// Takes a colour in the colour dialog.
    void chooseColour(int red, int green, int blue);
    /// The text of the message box; presses its button of that caption.
    QString answer(const QString& buttonText);
    /// What a control is looked for: one to be used must be enabled too.
    enum class Wanted { toUse, toLookAt };
    /// The visible control of that name.
    QWidget* find(const QString& control, Wanted wanted = Wanted::toUse) const;
    bool sees(const QString& control) const;
    /// Behind the header.
    int rowsIn(const QString& grid) const;
    /// What stands in that field.
    QString shownText(const QString& field) const;
    /// Whether a call is waiting for the screen, so that nothing else should be done now.
    bool waits() const { return waits_; }

  private:
    void wait(int milliseconds);
    void clickIndex(QAbstractItemView& view, const QModelIndex& index, int offset);

    bool waits_ = false;
};

}  // namespace desk::tour
