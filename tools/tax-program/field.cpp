#include "tax-program/field.h"

#include <QKeyEvent>

namespace desk::tax {

Field::Field(const QString& name) {
    setObjectName(name);
}

void Field::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    selectAll();
    if (entered) entered();
}

void Field::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (confirmed) return confirmed();
            focusNextChild();
            return;
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (moved) return moved(event->key() == Qt::Key_Up ? -1 : 1);
            break;
        case Qt::Key_C:
            // A capital letter in a key string comes with the shift key.
            if (event->modifiers().testFlag(Qt::ControlModifier)) return copy();
            break;
        default:
            break;
    }
    QLineEdit::keyPressEvent(event);
}

}  // namespace desk::tax
