#include "desktop/layouts/facsimile.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/convert.h"
#include "desktop/layout.h"

namespace desk::desktop {

namespace {

using namespace layout;

const QColor paper(255, 253, 244);
const QColor field(255, 255, 255);
const QColor print(122, 62, 38);
const QColor number(196, 30, 30);

constexpr int widest = 1060;

/// The colours of printed paper, whatever those of the desktop are.
void printOn(QWidget* part, const QColor& ground) {
    QPalette colours = part->palette();
    colours.setColor(QPalette::Window, ground);
    colours.setColor(QPalette::Base, field);
    colours.setColor(QPalette::WindowText, print);
    colours.setColor(QPalette::Text, Qt::black);
    part->setPalette(colours);
    part->setAutoFillBackground(true);
}

void setSize(QWidget* label, double factor, bool bold) {
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    label->setFont(font);
}

void setInk(QWidget* label, const QColor& ink) {
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, ink);
    label->setPalette(colours);
}

/// The part's name, printed down its edge one sign below the other.
class Edge : public QWidget {
  public:
    explicit Edge(const QString& words) : words_(words) {
        setAccessibleName(words);
        setFixedWidth(fontMetrics().height() + 4);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(print);
        const int step = fontMetrics().height();
        QRect sign(0, (height() - step * static_cast<int>(words_.size())) / 2, width(), step);
        for (const QChar each : words_) {
            painter.drawText(sign, Qt::AlignCenter, QString(each));
            sign.translate(0, step);
        }
    }

  private:
    QString words_;
};

/// A line across, twice, as below the title of an official form.
class DoubleLine : public QWidget {
  public:
    DoubleLine() { setFixedHeight(4); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(0, 0, width(), 1, print);
        painter.fillRect(0, height() - 1, width(), 1, print);
    }
};

QWidget* printed(std::string_view words, Qt::Alignment where = Qt::AlignCenter) {
    auto* label = new QLabel(text(words));
    label->setAlignment(where);
    return label;
}

/// A value that stands in print on the form.
QWidget* sample(Label& value, Qt::Alignment where = Qt::AlignLeft | Qt::AlignVCenter) {
    auto* label = qobject_cast<QLabel*>(plain(value));
    label->setAlignment(where);
    setInk(label, Qt::black);
    return label;
}

QWidget* entry(Control& control, std::string_view spoken, Qt::Alignment where = Qt::AlignLeft) {
    QWidget* widget = plain(control, spoken);
    if (auto* line = qobject_cast<QLineEdit*>(widget)) line->setAlignment(where | Qt::AlignVCenter);
    return widget;
}

/// The ruled part of the form: what shows between its cells are the rules.
class Table : public QWidget {
  public:
    Table() : cells_(new QGridLayout(this)) {
        printOn(this, print);
        cells_->setContentsMargins(1, 1, 1, 1);
        cells_->setSpacing(1);
    }

    void put(int row, int column, QWidget* part, int columns = 1) {
        auto* cell = new QWidget;
        printOn(cell, paper);
        auto* box = new QHBoxLayout(cell);
        box->setContentsMargins(5, 3, 5, 3);
        box->addWidget(part);
        cells_->addWidget(cell, row, column, 1, columns);
    }
    void setShare(int column, int share) { cells_->setColumnStretch(column, share); }

  private:
    QGridLayout* cells_;
};

void putItem(Table& table, int row, 开票项& item, const std::string& line) {
    table.put(row, 0, entry(item.项目, "经营项目" + line), 2);
    table.put(row, 2, entry(item.单价, "单价" + line, Qt::AlignRight));
    table.put(row, 3, entry(item.数量, "数量" + line, Qt::AlignRight));
    table.put(row, 4, entry(item.金额, "金额" + line, Qt::AlignRight), 2);
}

QWidget* tableOf(发票样张& form) {
    auto* table = new Table;
    table->put(0, 0, printed("付款单位（个人）"));
    table->put(0, 1, entry(form.付款单位, "付款单位"), 3);
    table->put(0, 4, printed("开票日期"));
    table->put(0, 5, entry(form.开票日期, "开票日期"));
    table->put(1, 0, printed("经营项目"), 2);
    table->put(1, 2, printed("单价"));
    table->put(1, 3, printed("数量"));
    table->put(1, 4, printed("金  额"), 2);
    for (std::size_t i = 0; i < form.项目.size(); ++i)
        putItem(*table, 2 + static_cast<int>(i), form.项目[i], std::to_string(i + 1));
    table->put(5, 0, printed("备注"));
    table->put(5, 1, entry(form.备注, "备注"), 5);
    table->put(6, 0, printed("合计金额（大写）"));
    table->put(6, 1, sample(form.合计大写), 3);
    table->put(6, 4, sample(form.合计小写, Qt::AlignRight | Qt::AlignVCenter), 2);
    table->put(7, 0, printed("收款单位"));
    table->put(7, 1, new QLabel, 3);
    table->put(7, 4, printed("税务登记号"));
    table->put(7, 5, new QLabel);
    table->put(8, 0, printed("机器编码"));
    table->put(8, 1, new QLabel, 3);
    table->put(8, 4, printed("开户银行及账号"));
    table->put(8, 5, new QLabel);
    table->setShare(1, 3);
    for (const int narrow : {2, 3, 5}) table->setShare(narrow, 1);
    return table;
}

/// Captions and what stands behind each, a line for each pair.
QWidget* lines(std::initializer_list<std::pair<std::string_view, QWidget*>> pairs) {
    auto* whole = new QWidget;
    auto* grid = new QGridLayout(whole);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(1, 1);
    int line = 0;
    for (const auto& [words, part] : pairs) {
        grid->addWidget(printed(words, Qt::AlignLeft | Qt::AlignVCenter), line, 0);
        grid->addWidget(part, line++, 1);
    }
    return whole;
}

QWidget* titleOf(Label& title) {
    auto* words = qobject_cast<QLabel*>(plain(title));
    words->setAlignment(Qt::AlignCenter);
    setSize(words, 1.6, true);
    auto* part = rows({words, new DoubleLine});
    part->setContentsMargins(0, 2, 0, 6);
    return columns({new QWidget, part, new QWidget}, {1, 0, 1});
}

QWidget* headOf(发票样张& form, QWidget* remark) {
    QWidget* shown = sample(form.发票号码);
    setSize(shown, 1.35, true);
    setInk(shown, number);
    shown->setMinimumWidth(shown->fontMetrics().horizontalAdvance("0000000000"));
    auto* ticket = columns({entry(form.空白票据, "空白票据"), shown}, {0, 1});
    auto* book = lines({{"请选择票据本", entry(form.票据本, "票据本")},
                        {"机打号码", sample(form.机打号码)},
                        {"税 控 码", new QLabel}});
    auto* code = lines({{"发票号码", ticket}, {"发票代码", sample(form.发票代码)}, {"", new QLabel}});
    return columns({book, remark != nullptr ? remark : new QWidget, code}, {4, 3, 4});
}

QWidget* footOf(发票样张& form) {
    return columns({lines({{"开 票 人", entry(form.开票人, "开票人")}}), lines({{"收 款 人", new QLabel}})},
                   {1, 1});
}

}  // namespace

QWidget* sheetOf(发票样张& form, QWidget* remark) {
    auto* body = rows({titleOf(form.标题), headOf(form, remark), tableOf(form), footOf(form)}, {0, 0, 1, 0});
    auto* part = columns({body, new Edge("存  根  联")}, {1, 0});
    part->setContentsMargins(18, 12, 8, 14);
    auto* sheet = framed(form.发票, part);
    printOn(sheet, paper);
    sheet->setMaximumWidth(widest);
    auto* whole = new QWidget;
    auto* middle = new QHBoxLayout(whole);
    middle->setContentsMargins(0, 0, 0, 0);
    middle->addStretch(1);
    middle->addWidget(sheet, 1000);
    middle->addStretch(1);
    return whole;
}

}  // namespace desk::desktop
