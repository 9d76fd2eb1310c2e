#include "base/text.h"
#include "db/statement.h"
#include "intent/letter.h"
#include "session/document_number.h"

namespace desk {

void Frm意向书信息::save() {
    if (!管理项目.hasSelection()) return;
    const std::string& number = 信息.登记编号.text();
    // A new letter that was given up leaves a number behind that no letter has.
    const bool givenUp = number == 自动编号提示;
    if (!新增.entering() && (givenUp || (!shownOf_.empty() && !isShown())))
        return app_.desktop.notify(先选意向书);
    if (number.empty() || number == 输入编号提示) return app_.tell("请输入登记编号");
    if (!storeLetter()) return;
    if (!单元.reserve(信息.id(), 信息["租赁起始日期"].text())) return;
    refillTree();
    if (const TreeNode* node = 意向书.find("YM" + std::string(trimmed(number)))) 意向书.reveal(*node);
    app_.saved(number);
}

/// Writes the letter itself, whose units are not reserved yet. False when its number is taken; then the
/// person has been told.
bool Frm意向书信息::storeLetter() {
    if (新增.entering()) return addLetter();
    Recordset letter = openForWriting(trimmed(信息.登记编号.text()));
    write(letter);
    return true;
}

Recordset Frm意向书信息::openForWriting(std::string_view number) {
    return Recordset(
        app_.主连接,
        sql("SELECT * From YZ_意向书信息 Where 意向书编号='{}' AND 管理处代号='{}'", number, code()),
        Rows::updatable);
}

bool Frm意向书信息::addLetter() {
    TextBox& number = 信息.登记编号;
    if (anyRow(app_.主连接, sql("Select * From  YZ_意向书信息 Where 意向书编号='{}'AND 管理处代号='{}'",
                                trimmed(number.text()), code()))) {
        app_.inform("在登记信息中已存在相同的意向书编号，请核对！");
        return false;
    }
    std::optional<Recordset> letter;
    Value serial;
    if (Check5.checked()) {
        const auto drawn =
            drawNumber(app_, "意向书登记", "YZ_意向书信息", code(), [&](const std::string& next) {
                number.setText(next);
                letter.emplace(openForWriting(trimmed(next)));
                return !letter->atEnd();
            });
        serial = std::int64_t{drawn.流水号};
    } else {
        letter.emplace(openForWriting(number.text()));
        if (!letter->atEnd()) {
            app_.tell(number.text() + "登记的编号已经存在，请输入其他的登记编号！");
            return false;
        }
    }
    letter->addNew();
    if (!serial.isNull()) (*letter)["流水号"] = serial;
    (*letter)["意向书编号"] = trimmed(number.text());
    (*letter)["管理处代号"] = code();
    write(*letter);
    return true;
}

void Frm意向书信息::write(Recordset& letter) {
    信息.write(letter);
    letter.update();
    信息.登记编号.tag = letter["ID"].text();
    shownOf_ = code();
}

}  // namespace desk
