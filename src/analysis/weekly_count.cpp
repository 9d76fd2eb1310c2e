#include "analysis/weekly_count.h"

#include <fmt/format.h>

#include <chrono>

#include "base/number.h"
#include "db/recordset.h"

namespace desk {

namespace {

/// "03.05（周六）"
std::string dayLabel(const DateTime& day) {
    constexpr const char* weekdays[] = {"日", "一", "二", "三", "四", "五", "六"};
    const auto weekday = std::chrono::weekday(std::chrono::sys_days(day.day));
    return formatDate(day, "MM.DD") + "（周" + weekdays[weekday.c_encoding()] + "）";
}

std::string textOrZero(const Recordset::Field& field) {
    return field.isNull() ? "0.00" : field.text();
}

class Counter {
  public:
    using Items = std::vector<统计项>;
    using Answer = std::optional<Items>;

    Counter(Connection& connection, const 统计范围& range, const std::function<bool(long, long)>& goOn)
        : connection_(connection), range_(range), goOn_(goOn) {}

    /// No result stays open while events run.
    Answer operator()(const 字典统计& view) const {
        std::vector<std::string> names;
        for (auto& row : Recordset(connection_, sql("Select * From {}", view.名称表)))
            names.push_back(row[view.名称列].text());
        Items items;
        for (const auto& name : names) {
            const auto count = static_cast<float>(mentions(view.列, name));
            items.push_back({name, numberText(count), count});
            if (!goOn_(static_cast<long>(items.size()), static_cast<long>(names.size()))) return {};
        }
        return items;
    }

    Answer operator()(const 数值统计& view) const {
        Items items;
        for (auto& row : Recordset(
                 connection_,
                 sql("Select {} From YZ_引驻客户信息 Where  管理处代号='{}' AND 登记日期 Between "
                     "'{}' AND '{}' AND 客源类别='{}' Group BY {}",
                     view.选取, range_.管理处, range_.开始文本, range_.结束文本, range_.客源类别, view.列)))
            if (!row[0].isNull()) items.push_back(counted(textOrZero(row[0]), row["SL"]));
        if (!goOn_(1, 1)) return {};
        return items;
    }

    Answer operator()(逐日统计) const {
        const long days =
            (std::chrono::sys_days(range_.结束.day) - std::chrono::sys_days(range_.开始.day)).count() + 1;
        Items items;
        for (DateTime day = range_.开始; day <= range_.结束; day = day.plusDays(1)) {
            items.push_back(on(day));
            if (!goOn_(static_cast<long>(items.size()), days)) return {};
        }
        return items;
    }

  private:
    /// A lead holds a list of names: it is counted under each of them, and under each name that is part of
    /// one.
    double mentions(Name column, const std::string& name) const {
        return Recordset(
                   connection_,
                   sql("Select Count(*) as SL From YZ_引驻客户信息 Where {} like ('%{}%') AND "
                       "管理处代号='{}' AND 登记日期 Between '{}' AND '{}' AND 客源类别='{}'",
                       column, name, range_.管理处, range_.开始文本, range_.结束文本, range_.客源类别))["SL"]
            .number();
    }

    统计项 on(const DateTime& day) const {
        Recordset row(connection_,
                      sql("Select Count(登记日期) AS SL From YZ_引驻客户信息 Where  管理处代号='{}' AND "
                          "登记日期 = '{}'  AND 客源类别='{}'",
                          range_.管理处, isoDay(day), range_.客源类别));
        return counted(dayLabel(day), row["SL"]);
    }

    static 统计项 counted(std::string label, const Recordset::Field& count) {
        return {std::move(label), textOrZero(count), static_cast<float>(count.number())};
    }

    Connection& connection_;
    const 统计范围& range_;
    const std::function<bool(long, long)>& goOn_;
};

}  // namespace

std::optional<std::vector<统计项>> 计数(Connection& connection, const 统计视图& view, const 统计范围& range,
                                        const std::function<bool(long done, long total)>& goOn) {
    return std::visit(Counter(connection, range, goOn), view.算法);
}

std::string 占比例(float count, float total) {
    if (total == 0) return {};
    // A half is one by the seven digits that a person would see of the quotient.
    const double share = val(fmt::format("{:.7g}", count / total));
    return formatNumber(share * 100, "0.00") + "%";
}

}  // namespace desk
