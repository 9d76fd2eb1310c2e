#include "tax-program/device.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTextStream>

namespace desk::tax {

namespace {

constexpr const char* printed = "发票号码：";
constexpr const char* takenBack = "退票号码：";

QString today() {
    return QDate::currentDate().toString("yyyy-MM-dd");
}

QString after(const QString& number) {
    return QString::number(number.toLongLong() + 1).rightJustified(number.size(), '0');
}

}  // namespace

QString Device::recall(const char* key, const QString& fallback) const {
    return QSettings(options_.folder + "/device.ini", QSettings::IniFormat).value(key, fallback).toString();
}

void Device::remember(const char* key, const QString& value) {
    QSettings(options_.folder + "/device.ini", QSettings::IniFormat).setValue(key, value);
}

QString Device::number() const {
    if (options_.noNumber) return {};
    return options_.number.isEmpty() ? recall("next", options_.firstNumber) : options_.number;
}

QString Device::lastPrinted() const {
    return recall("last", {});
}

QString Device::print(const Invoice& invoice) {
    if (!options_.refusal.isEmpty()) return options_.refusal;
    if (const QString fault = invoice.fault(); !fault.isEmpty()) return fault;
    QStringList lines{printed + invoice.number, "开票日期：" + today(), "付款单位：" + invoice.payer};
    for (const Line& line : invoice.lines) {
        if (line.isEmpty()) continue;
        lines << "经营项目：" + line.code + " " + line.item() << "单价：" + line.price
              << "数量：" + line.quantity << "金额：" + line.amount;
    }
    lines << "合计金额：" + inFigures(invoice.total()) << "大写金额：" + inWords(invoice.total())
          << "备注：" + invoice.remark << "开票人：" + options_.user;
    const QString failure = append(lines);
    if (!failure.isEmpty()) return failure;
    remember("last", invoice.number);
    if (options_.number.isEmpty()) remember("next", after(invoice.number));
    return {};
}

QString Device::takeBack(const QString& number, const QString& reason) {
    if (!isOut(number)) return "没有可退的发票 " + number;
    return append(
        {takenBack + number, "退票日期：" + today(), "退票原因：" + reason, "操作员：" + options_.user});
}

QString Device::append(const QStringList& lines) {
    QDir().mkpath(QFileInfo(options_.journal).path());
    QFile file(options_.journal);
    const QByteArray text = (lines.join('\n') + "\n\n").toUtf8();
    const bool written = file.open(QIODevice::Append) && file.write(text) == text.size() && file.flush();
    return written ? QString() : "无法写入 " + options_.journal;
}

bool Device::isOut(const QString& number) const {
    QFile file(options_.journal);
    if (!file.open(QIODevice::ReadOnly)) return false;
    bool out = false;
    for (QTextStream lines(&file); !lines.atEnd();) {
        const QString line = lines.readLine();
        if (line == printed + number) out = true;
        if (line == takenBack + number) out = false;
    }
    return out;
}

}  // namespace desk::tax
