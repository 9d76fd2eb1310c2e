#pragma once

#include <QLineEdit>
#include <functional>

namespace desk::tax {

/// A field to type into. It is entered with its text selected, so that typing replaces the text, and Enter
/// goes on to the next one unless something else was agreed.
class Field : public QLineEdit {
  public:
    explicit Field(const QString& name);

    std::function<void()> entered;
    std::function<void()> confirmed;
    std::function<void(int by)> moved;  ///< the keys for one up and one down

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace desk::tax
