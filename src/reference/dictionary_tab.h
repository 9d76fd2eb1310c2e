#pragma once

#include <string_view>

#include "db/statement.h"
#include "reference/setup_pages.h"
#include "session/application.h"

namespace desk {

/// What tells one word list from another. The words of the deletion are those that the users have always
/// read, also where they speak of something else.
struct DictionaryKind {
    std::string_view title;
    Name table;
    Name nameColumn;    ///< also the caption of the name
    Name deleteColumn;  ///< the column that the deletion compares
    std::string_view nothingChosen;
    std::string_view question;
};

extern const DictionaryKind 区域字典;
extern const DictionaryKind 企业性质字典;
extern const DictionaryKind 行业字典;
extern const DictionaryKind 咨询内容字典;
extern const DictionaryKind 媒体字典;

/// The tab of one word list: its entries, a name and a note. Registered customers keep the text of an entry
/// whatever happens to it here.
class DictionaryTab {
  public:
    DictionaryTab(Screen& screen, Application& app, SetupStatus& status, const DictionaryKind& kind);
    DictionaryTab(const DictionaryTab&) = delete;
    DictionaryTab& operator=(const DictionaryTab&) = delete;

    /// Reads the table.
    void load();

    const DictionaryKind& kind;
    Frame 框;
    SetupGrid 列表;
    TextBox 名称;
    TextBox 说明;
    Button 确定;
    Button 删除;
    Button 退出;

  private:
    void showEntry();
    void focusName();
    void save();
    bool add(const std::string& name);
    /// Whether the row that is to be changed was still there.
    bool change(const std::string& name);
    void remove();

    Application& app_;
    SetupStatus& status_;
};

}  // namespace desk
