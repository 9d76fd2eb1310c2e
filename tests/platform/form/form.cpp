#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QFormLayout>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QThread>
#include <QWidget>

namespace {

/// What this program reads is written there, a line each.
void note(const QString& line) {
    QFile file(qEnvironmentVariable("FORM_JOURNAL"));
    if (file.open(QIODevice::Append)) file.write(line.toUtf8() + '\n');
}

/// Writes down each key that is pressed, with what holds it.
class KeyField : public QLineEdit {
  protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return QLineEdit::event(event);
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_F12) return QLineEdit::event(event);
        const QString name = key->key() == Qt::Key_unknown || key->key() == 0
                                 ? "symbol " + QString::number(key->nativeVirtualKey(), 16)
                                 : QKeySequence(key->keyCombination()).toString();
        if (key->key() < Qt::Key_Shift || key->key() > Qt::Key_Alt)
            note(name + (key->isAutoRepeat() ? " repeated" : ""));
        return true;
    }
};

/// A form of five fields and one for keys: F9 writes the fields down and empties them, F8 brings another
/// window, F7 does nothing for a while, F12 goes to the first field.
class Form : public QWidget {
  public:
    Form() {
        setWindowTitle("表单");
        auto* lines = new QFormLayout(this);
        for (int i = 0; i < 5; ++i) lines->addRow(QString::number(i), fields_[i] = new QLineEdit);
        lines->addRow("keys", new KeyField);
        other_.setWindowTitle("另一个窗口");
        auto* field = new QLineEdit(&other_);
        QObject::connect(field, &QLineEdit::textChanged, [](const QString& text) { note("other " + text); });
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        constexpr unsigned long aWhile = 4000;
        switch (event->key()) {
            case Qt::Key_F7:
                QThread::msleep(aWhile);
                break;
            case Qt::Key_F8:
                other_.show();
                break;
            case Qt::Key_F9:
                takeDown();
                [[fallthrough]];
            case Qt::Key_F12:
                fields_[0]->setFocus();
                break;
            default:
                QWidget::keyPressEvent(event);
        }
    }

  private:
    void takeDown() {
        QStringList texts;
        for (QLineEdit* field : fields_) {
            texts += field->text();
            field->clear();
        }
        note(texts.join('|'));
    }

    QLineEdit* fields_[5]{};
    QDialog other_{this};
};

}  // namespace

/// The other program that tests type into.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Form form;
    form.show();
    return QApplication::exec();
}
