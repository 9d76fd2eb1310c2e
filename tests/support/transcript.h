#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/portrait.h"
#include "support/scripted_hand.h"
#include "support/test_program.h"

namespace desk {

/// A script of what a person does at a program, and under each line what the program did: the statements that
/// it sent, the boxes that it showed, the rows that it wrote, the controls that changed. A transcript is read
/// once beside what the users were promised; from then on it is compared.
///
///     given Insert Into …          before the program starts: rows of the database; later: another seat
///     include rows.given           lines of another file of the folder
///     watch YZ_引驻客户信息          rows of these tables that come, change or go are told
///     window 鸿序楼台                another program's window that can be brought to the front
///     file c:\税控\开票.exe          a file that is on the machine
///     copies 9001                  what the clipboard holds once a program was asked to copy
///     quiet                        statements are not told
///     refuses 文件已加密，不能写入      why no workbook can be written from now on
///     opens nothing                no program is there for files
///     stops 3                      a person stops long work when it tells for the third time how far it is
///     > open frm中介公司设置         what the person does, in the words of ScriptedHand
///         select …                 what the program did
///
/// With TRANSCRIPTS=rewrite in the environment the files are written anew instead by whoever plays them for
/// the first time; then read what changed.
class Transcript {
  public:
    /// Whether a script is played as it was written, or once more by somebody else.
    enum class Playing { itself, onceMore };

    /// `offer` makes the screens of the room known to the program; `actor` acts, the controls' own if null.
    Transcript(std::string path, const std::function<void(TestProgram&)>& offer,
               std::unique_ptr<Actor> actor = nullptr, Playing playing = Playing::itself);
    ~Transcript();
    Transcript(const Transcript&) = delete;
    Transcript& operator=(const Transcript&) = delete;

    /// Plays the script and compares; differences are failures of the running test.
    void check();

    TestProgram program;

  private:
    void play();
    void include(const std::string& file);
    void step(const std::string& line);
    void act(const std::string& line);
    void enter();

    /// Writes down what has changed on the screens and in the tables since it was called last.
    void settle();
    void settleScreens();
    /// Tells of the focus, the selections and the rows in view that the screen asks for.
    void watchFocus(const Screen& screen);
    void settleTables();
    void settleMachine();
    void say(const std::string& line);
    void tellWaiting();
    std::vector<std::string> rowsOf(const std::string& table);

    std::string path_;
    Playing playing_;
    ScriptedHand hand_;
    std::deque<std::string> script_;  ///< lines still to come
    std::string played_;

    bool quiet_ = false;
    bool watching_ = true;
    bool ended_ = false;
    std::vector<std::string> given_;
    std::map<std::string, Portrait> portraits_;
    std::vector<Subscription> focusWatches_;
    std::map<std::string, std::vector<std::string>> tables_;
    std::string session_;
    int ticks_ = 0;  ///< waited since the last line
};

/// The names of the transcripts of a folder without their ".txt".
std::vector<std::string> transcriptsIn(const std::string& folder);

}  // namespace desk
