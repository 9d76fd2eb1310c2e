#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/actor.h"
#include "support/test_program.h"

namespace desk {

/// The word before the first blank, and what stands behind it.
std::pair<std::string, std::string> firstWord(const std::string& line);

/// A text as a script says it: without the quotes around it, "\n" for a line end.
std::string unquoted(std::string text);

/// Whoever does at a program what the lines of a script say, at the screen that came last:
///
///     open frm中介公司设置            from the menu, or to the front
///     press 新增                    a button; "click", "doubleclick" and "tick" for what is no button
///     type 公司名称 甲公司            between quotes where blanks at the ends matter, "\n" for a line end
///     pick 管理项目 01 东塔           an entry by its text, or by its number: "#1" is the first
///     click 列表 2 3                a row, and a column if it is not the first
///     widen 地图 3000                as its window would: so wide, in twips; "scroll" moves it to there
///     rightclick 标记(1)             with the other button of the mouse
///     within 来人                    names of controls that follow are parts of that
///     answer yes                    to the next question; "colour" and "file" to other dialogs
class ScriptedHand {
  public:
    /// `actor` acts, the controls' own if null.
    explicit ScriptedHand(TestProgram& program, std::unique_ptr<Actor> actor = nullptr);

    /// Fails with RuntimeFailure where there is no such screen, control or node, and as the program does.
    void act(const std::string& line);
    /// A screen has come to the front.
    void shown(const std::string& screen);

    Actor& actor() { return *actor_; }
    TestProgram& program() { return program_; }
    Screen& current() const;
    /// Of the screen in front, or of the menu. Fails where there is none.
    Control& control(const std::string& name) const;
    /// The loaded screens in the order in which they came.
    std::vector<std::string> screens() const;

  private:
    bool atTheProgram(const std::string& verb, const std::string& rest);
    void atTheControl(Control& control, const std::string& verb, const std::string& rest);
    void atATree(Tree& tree, const std::string& verb, const std::string& rest);
    void atAGrid(Grid& grid, const std::string& verb, const std::string& rest);

    TestProgram& program_;
    std::unique_ptr<Actor> actor_;
    std::vector<std::string> shown_;
    std::string scope_;
};

}  // namespace desk
