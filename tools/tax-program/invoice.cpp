#include "tax-program/invoice.h"

#include <cmath>

#include "base/number.h"

namespace desk::tax {

namespace {

/// What a line may come to: more does not fit on the paper.
constexpr double most = 1e12;

std::optional<double> numberIn(const QString& text) {
    const auto number = wholeNumber(text.toStdString());
    return number && std::abs(*number) < most ? number : std::nullopt;
}

std::optional<qint64> hundredthsIn(const QString& text) {
    const auto number = numberIn(text);
    return number ? std::optional<qint64>(std::llround(*number * 100)) : std::nullopt;
}

QString digit(int value) {
    static const QString digits = "零壹贰叁肆伍陆柒捌玖";
    return digits.mid(value, 1);
}

/// Zeros between others are said once, those at the end of four places are not said there.
QString wholeInWords(qint64 yuan) {
    static const std::array<QString, 4> places = {"", "拾", "佰", "仟"};
    static const std::array<QString, 4> groups = {"", "万", "亿", "万亿"};
    const QString digits = QString::number(yuan);
    QString words;
    bool zeroBefore = false;
    bool groupSaysSomething = false;
    for (qsizetype i = 0; i < digits.size(); ++i) {
        const auto place = static_cast<std::size_t>(digits.size() - 1 - i);
        const int value = digits[i].digitValue();
        if (value > 0) words += (zeroBefore ? digit(0) : QString()) + digit(value) + places[place % 4];
        zeroBefore = value == 0;
        groupSaysSomething = groupSaysSomething || value > 0;
        if (place % 4 == 0 && groupSaysSomething) words += groups[place / 4];
        if (place % 4 == 0) groupSaysSomething = false;
    }
    return words;
}

QString faultIn(const Line& line) {
    if (line.item().isEmpty()) return "未选择经营项目";
    if (!numberIn(line.price)) return "的单价不是数字";
    if (!numberIn(line.quantity)) return "的数量不是数字";
    if (!hundredthsIn(line.amount)) return "的金额不是数字";
    return {};
}

}  // namespace

bool Line::isEmpty() const {
    return code.isEmpty() && price.isEmpty() && quantity.isEmpty() && amount.isEmpty();
}

QString Line::item() const {
    for (const Item& item : items)
        if (code == item.code) return item.name;
    return {};
}

std::optional<QString> Line::product() const {
    const auto first = numberIn(price);
    const auto second = numberIn(quantity);
    if (!first || !second || std::abs(*first * *second) >= most) return std::nullopt;
    return inFigures(std::llround(*first * *second * 100));
}

qint64 Invoice::total() const {
    qint64 sum = 0;
    for (const Line& line : lines) sum += hundredthsIn(line.amount).value_or(0);
    return sum;
}

QString Invoice::fault() const {
    if (number.isEmpty()) return "没有可用的发票，请装入发票卷";
    if (payer.isEmpty()) return "请输入付款单位";
    bool hasLine = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].isEmpty()) continue;
        hasLine = true;
        if (const QString fault = faultIn(lines[i]); !fault.isEmpty())
            return QString("第%1行%2").arg(i + 1).arg(fault);
    }
    return hasLine ? QString() : "请输入经营项目";
}

QString inFigures(qint64 hundredths) {
    const qint64 size = std::abs(hundredths);
    return QString("%1%2.%3")
        .arg(hundredths < 0 ? "-" : "")
        .arg(size / 100)
        .arg(size % 100, 2, 10, QChar('0'));
}

QString inWords(qint64 hundredths) {
    const qint64 size = std::abs(hundredths);
    const qint64 yuan = size / 100;
    const int tenths = static_cast<int>(size / 10 % 10);
    const int last = static_cast<int>(size % 10);
    QString words = hundredths < 0 ? "负" : "";
    if (yuan > 0 || size == 0) words += (yuan > 0 ? wholeInWords(yuan) : digit(0)) + "元";
    if (tenths > 0) words += digit(tenths) + "角";
    if (last == 0) return words + "整";
    if (tenths == 0 && yuan > 0) words += digit(0);
    return words + digit(last) + "分";
}

}  // namespace desk::tax
