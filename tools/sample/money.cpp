#include "sample/money.h"

#include <fmt/format.h>

#include <array>

#include "db/statement.h"
#include "sample/filler.h"

namespace desk::sample {

namespace {

struct Account {
    const char* 科目代号;
    const char* 科目名称;
};

constexpr std::array<Account, 7> accounts = {{{"224101", "其他应付款—租金意向金"},
                                              {"224102", "其他应付款—物业管理费意向金"},
                                              {"224103", "其他应付款—装修押金"},
                                              {"224104", "其他应付款—水电押金"},
                                              {"224105", "其他应付款—钥匙押金"},
                                              {"600101", "主营业务收入—租金"},
                                              {"600102", "主营业务收入—物业管理费"}}};

struct TicketKind {
    const char* 票据类型代号;
    const char* 票据类型;
    bool 税控;
    bool 定额;
    int books;
};

constexpr std::array<TicketKind, 3> ticketKinds = {{{"1", "税控发票", true, false, 2},
                                                    {"2", "收款收据", false, false, 2},
                                                    {"3", "定额发票", false, true, 1}}};

constexpr int ticketsABook = 50;
constexpr int ticketsOnARoll = 100;
constexpr const char* taxTicket = "1 税控发票";

/// One blank ticket.
struct Ticket {
    std::string 入库单编号;
    std::string 票据编号;
};

void addCharges(Connection& connection) {
    Filler accountRows(connection, "财务科目", {"科目代号", "科目名称"});
    for (const Account& account : accounts) accountRows.add({account.科目代号, account.科目名称});
    Filler rows(connection, "SETUPSFXM", {"DH", "XM", "收费类别", "对应科目", "票据类型"});
    rows.add({"YJ01", "租金意向金", "押金", "224101", "1"});
    rows.add({"YJ02", "物业管理费意向金", "押金", "224102", "1"});
    rows.add({"YJ03", "装修押金", "押金", "224103", "2"});
    rows.add({"YJ04", "水电押金", "押金", "224104", "1"});
    rows.add({"YJ05", "钥匙押金", "押金", "224105", "1"});
    rows.add({"ZJ01", "租金", "租金", "600101", "1"});
    rows.add({"WG01", "物业管理费", "物业费", "600102", "1"});
}

/// The books of tickets, drawn by the cashier's department, which shares them with the sales department.
class Stock {
  public:
    Stock(Connection& connection, const Organisation& organisation, const DateTime& today)
        : books_(connection, "票据入库单", {"入库单编号", "票据类型编号", "税控"}),
          list_(connection, "票据领用清单", {"领用记录编号", "入库单编号", "核销日期", "归还日期"}),
          tickets_(connection, "票据", {"入库单编号", "票据编号", "作废日期"}),
          today_(today) {
        Filler drawn(connection, "票据领用记录", {"票据领用记录编号", "领用部门代号"});
        drawn.add({draw, organisation.cashierDepartment});
        Filler shared(connection, "票据共用设置", {"领用部门编号", "共用部门编号"});
        shared.add({organisation.cashierDepartment, "101"});
        Filler kinds(connection, "票据类型", {"票据类型代号", "票据类型", "税控", "定额"});
        for (const TicketKind& kind : ticketKinds)
            kinds.add({kind.票据类型代号, kind.票据类型, kind.税控 ? Value(true) : Value(), kind.定额});
    }

    /// The tickets that the tax device has in it, none of them used.
    void addRoll() { addBook(ticketKinds[0], ticketsOnARoll, notSpoilt); }

    /// Books of all kinds, a ticket of each spoilt. Gives the blank tickets of the tax books.
    std::vector<Ticket> addBooks() {
        std::vector<Ticket> blank;
        for (const TicketKind& kind : ticketKinds)
            for (int i = 0; i < kind.books; ++i)
                for (Ticket& ticket : addBook(kind, ticketsABook, ticketsABook / 2))
                    if (kind.税控) blank.push_back(std::move(ticket));
        return blank;
    }

    /// One that has come to its end and one that was given back.
    void addClosedBooks() {
        books_.add({"RK0090", "1", true});
        list_.add({draw, "RK0090", today_.plusDays(-200), {}});
        books_.add({"RK0091", "1", true});
        list_.add({draw, "RK0091", {}, today_.plusDays(-150)});
    }

  private:
    static constexpr const char* draw = "LY0001";
    static constexpr int notSpoilt = -1;

    std::vector<Ticket> addBook(const TicketKind& kind, int count, int spoilt) {
        const std::string number = fmt::format("RK{:04}", ++lastBook_);
        books_.add({number, kind.票据类型代号, kind.税控});
        list_.add({draw, number, {}, {}});
        std::vector<Ticket> blank;
        for (int i = 0; i < count; ++i) {
            const Ticket made{number, fmt::format("{:08}", 30'843'000 + lastBook_ * 100 + i)};
            tickets_.add(
                {made.入库单编号, made.票据编号, i == spoilt ? Value(today_.plusDays(-30)) : Value()});
            if (i != spoilt) blank.push_back(made);
        }
        return blank;
    }

    Filler books_;
    Filler list_;
    Filler tickets_;
    DateTime today_;
    int lastBook_ = 0;
};

/// The till: takes deposits with the tickets that are left.
class Till {
  public:
    Till(Connection& connection, const Organisation& organisation, std::vector<Ticket> blank)
        : connection_(connection),
          organisation_(organisation),
          blank_(std::move(blank)),
          payments_(connection, "YZ_意向金收款",
                    {"意向书ID", "收款日期", "票据入库单编号", "票据编号", "收费项目", "收费项目代号",
                     "科目编号", "数量", "单价", "金额", "票据类型", "处理结束", "票据打印"}),
          lines_(connection, "票据开票数据",
                 {"票据编号", "入库单编号", "票据ID", "项目", "收费项目代号", "数量", "单价", "金额",
                  "科目代号", "非日常"}) {}

    bool hasTickets() const { return next_ < blank_.size(); }

    /// Takes both deposits of the letter on one invoice; gives the ID of the first of the payments.
    std::int64_t collect(const PassedLetter& letter, const DateTime& when) {
        const Ticket& ticket = blank_[next_++];
        Recordset row(connection_,
                      sql("Select * From 票据 Where 入库单编号='{}' And 票据编号='{}'", ticket.入库单编号,
                          ticket.票据编号),
                      Rows::updatable);
        const std::int64_t ticketID = row["ID"].integer();
        row["金额"] = letter.租金意向金 + letter.物业管理费意向金;
        row["开票日期"] = when;
        row["付款人"] = letter.承租方;
        row["收款日期"] = when;
        row["开票人"] = organisation_.cashier.姓名;
        row["收款人"] = organisation_.cashier.姓名;
        row["开票部门编号"] = organisation_.cashierDepartment;
        row["收款方式"] = "现金";
        row.update();

        addLine(letter, ticket, ticketID, when, "租金意向金", "YJ01", "224101", letter.租金意向金);
        const std::int64_t first = payments_.identity();
        addLine(letter, ticket, ticketID, when, "物业管理费意向金", "YJ02", "224102",
                letter.物业管理费意向金);
        return first;
    }

  private:
    void addLine(const PassedLetter& letter, const Ticket& ticket, std::int64_t ticketID,
                 const DateTime& when, const char* item, const char* code, const char* account,
                 double amount) {
        payments_.add({letter.ID, when, ticket.入库单编号, ticket.票据编号, item, code, account, 1, amount,
                       amount, taxTicket, false, true});
        lines_.add(
            {ticket.票据编号, ticket.入库单编号, ticketID, item, code, 1, amount, amount, account, true});
    }

    Connection& connection_;
    const Organisation& organisation_;
    std::vector<Ticket> blank_;
    std::size_t next_ = 0;
    Filler payments_;
    Filler lines_;
};

/// Gives back the rent deposit of a letter, as the screen does: a reimbursement that is approved and paid at
/// once.
void refund(Connection& connection, const Organisation& organisation, const PassedLetter& letter,
            std::int64_t payment, const DateTime& when) {
    const DateTime day = when.dayOnly();
    const std::string voucher = fmt::format("TK-{}{:08}", formatDate(day, "YYYY"), 1);
    Recordset rows(connection, "Select * From 报销单表 Where 1=0", Rows::updatable);
    rows.addNew();
    rows["报销单编号"] = fmt::format("{}-{:08}", organisation.cashierDepartment, 1);
    rows["流水号"] = 1;
    rows["部门类别编号"] = "4";
    rows["部门代号"] = organisation.cashierDepartment;
    rows["报销费用类别"] = "意向金收费";
    rows["报销类型"] = "预算";
    rows["付款方式"] = "现金";
    for (const char* column : {"报销日期", "报批日期", "财务支付确认日期", "审批日期"}) rows[column] = day;
    rows["制单人"] = organisation.cashier.姓名;
    rows["报销人"] = letter.承租方;
    rows["报销单类型"] = "意向金退款";
    rows["审批通过"] = true;
    rows["一事一报"] = false;
    rows["备注"] = "退租金意向金 /客户取消租赁";
    rows["凭证编号"] = voucher;
    rows["凭证流水号"] = 1;
    rows.update();

    Filler details(connection, "报销单明细", {"报销单ID", "科目代号", "摘要", "金额", "CzyDH", "updatedate"});
    details.add({rows["报销单ID"].integer(), "224101", "退租金意向金", letter.租金意向金,
                 organisation.cashier.工号, when});
    Filler attachments(connection, "报销附件",
                       {"报销单明细ID", "附件类型", "项目", "金额", "附件数量", "CzyDH", "updatedate"});
    attachments.add({details.identity(), "租金意向金装修退款", "租金意向金", letter.租金意向金, 1,
                     organisation.cashier.工号, when});
    connection.execute(
        sql("UPDATE    YZ_意向金收款 SET 处理结束 =1, 退款日期 ='{}', 退款金额 ={}, 退款支付凭证编号 "
            "='{}', 退款说明 ='客户取消租赁' WHERE ID={}",
            isoDay(day), letter.租金意向金, voucher, payment));
}

}  // namespace

void addMoney(Connection& connection, Random& random, const Organisation& organisation,
              const std::vector<PassedLetter>& letters, const DateTime& today) {
    addCharges(connection);
    Stock stock(connection, organisation, today);
    stock.addRoll();
    Till till(connection, organisation, stock.addBooks());
    stock.addClosedBooks();
    bool refunded = false;
    for (const PassedLetter& letter : letters) {
        DateTime when = letter.passed.plusDays(random.between(1, 3));
        if (!till.hasTickets() || when.day > today.day || !random.chance(55)) continue;
        const std::int64_t payment = till.collect(letter, when);
        if (!refunded) refund(connection, organisation, letter, payment, when.plusDays(1));
        refunded = true;
    }
}

}  // namespace desk::sample
