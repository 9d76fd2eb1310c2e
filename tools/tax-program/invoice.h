#pragma once

#include <QString>
#include <array>
#include <optional>

namespace desk::tax {

/// What may be charged, by the device's own list.
struct Item {
    const char* code;
    const char* name;
};

/// In the order in which they are shown.
inline constexpr std::array<Item, 6> items = {{{"0101", "租金"},
                                               {"0102", "物业管理费"},
                                               {"0103", "水电押金"},
                                               {"0104", "钥匙押金"},
                                               {"0201", "停车费"},
                                               {"0202", "会议室使用费"}}};

/// A line of an invoice, as typed.
struct Line {
    QString code;
    QString price;
    QString quantity;
    QString amount;

    bool isEmpty() const;
    /// What the device calls its item; empty where it does not know the code.
    QString item() const;
    /// Unit price times quantity, as an amount is typed; nothing unless both are numbers.
    std::optional<QString> product() const;
};

struct Invoice {
    QString number;
    QString payer;
    std::array<Line, 3> lines;
    QString remark;

    /// In hundredths of a yuan; amounts that are no numbers do not count.
    qint64 total() const;
    /// Why it cannot be printed; empty when it can.
    QString fault() const;
};

/// "12345.60".
QString inFigures(qint64 hundredths);
/// "壹万贰仟叁佰肆拾伍元陆角整".
QString inWords(qint64 hundredths);

}  // namespace desk::tax
