#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <map>

#include "base/text.h"
#include "db/embedded/embedded.h"
#include "every_screen/scene.h"
#include "session/login.h"
#include "support/replaced.h"

namespace desk {
namespace {

/// Put together from two of it and more, a text still fits into a column.
const std::string longText = [] {
    std::string text = "始";
    for (int i = 0; i < 15; ++i) text += "长'x%";
    return text;
}();

/// Texts that mean something to a statement, each behind a sign that no other row begins with.
const std::vector<std::string> meaningTexts = {
    "始'",           "始''",   "始'; Delete From 员工档案 --",
    "始' or '1'='1", "始%",    "始[",
    "始[a-z]_",      "始--",   "始/*",
    "始\"",          "始{}",   std::string("始\0'末", 8),
    "始𠮷㐀鿿", longText,
};

/// The text without its meaning: as long, with blanks in the same places.
std::string plain(const std::string& text) {
    std::string result;
    const auto characters = toUtf16(text);
    for (std::size_t i = 0; i < characters.size(); ++i)
        result += characters[i] == ' ' ? " " : i == 0 ? "始" : "素";
    return result;
}

/// `all` as it would be had the text had no meaning. A code ends at the first blank of the text, or is the
/// text without its blanks.
std::string withoutMeaning(std::string all, const std::string& text) {
    std::string dense = text;
    std::erase(dense, ' ');
    for (const auto& each : {text, dense, std::string(codeBeforeBlank(text))})
        all = replaced(std::move(all), each, plain(each));
    return all;
}

/// After each step: all rows of the database, and all that the screens show and have said.
std::vector<std::string> traceOf(const Walk& walk, const std::string& text) {
    Scene scene(walk, text);
    std::vector<std::string> trace;
    for (const Step& step : walk.steps) {
        scene.take(step);
        std::string state = join(scene.everyRow(), "\n");
        for (const Message& message : scene.program.desktop.messages) state += "\n" + message.text;
        for (const Screen* screen : scene.screensInFront()) state += "\n" + shownBy(*screen);
        trace.push_back(std::move(state));
    }
    return trace;
}

class TypedText : public testing::TestWithParam<std::size_t> {};

/// A text that means something to a statement, typed wherever a text can be typed, finds, changes and deletes
/// what a text without meaning would have; and it comes back as it was typed.
TEST_P(TypedText, MeansNothing) {
    const Walk& walk = walks()[GetParam()];
    std::map<std::string, std::vector<std::string>> withoutMeaningOf;
    for (const auto& text : meaningTexts) {
        SCOPED_TRACE(text.substr(0, 60));
        const auto found = traceOf(walk, text);
        auto& expected = withoutMeaningOf[plain(text)];
        if (expected.empty()) expected = traceOf(walk, plain(text));
        for (std::size_t i = 0; i < found.size(); ++i)
            ASSERT_EQ(withoutMeaning(found[i], text), expected[i]) << walk.steps[i].name;
    }
}

INSTANTIATE_TEST_SUITE_P(Walks, TypedText, testing::Range(std::size_t{0}, walks().size()),
                         [](const auto& walk) { return walks()[walk.param].name; });

TEST(TypedTextAtTheDoor, OpensItForNobody) {
    const std::string path = testing::TempDir() + "door_" + std::to_string(::getpid()) + ".db";
    std::remove(path.c_str());
    embedded::createDatabase(path);
    TestProgram program;
    program.settings.keys["DBname"] = path;
    program.app.start("");
    auto& login = program.app.screens.get<FrmLogin>();
    for (const auto& text : meaningTexts)
        for (const auto& [user, password] :
             {std::pair("E01", text), std::pair(text.c_str(), std::string("x")),
              std::pair("E01", text + " ")}) {
            login.TxtUser.type(user);
            login.txtPassword.type(password);
            login.cmdOK.click();
            program.run({"Delete From 员工档案",
                         "Insert Into 员工档案 (工号,姓名,帐号密码) Values ('E01','林晓','one')"});
            login.cmdOK.click();
            ASSERT_FALSE(program.desktop.messages.empty());
            EXPECT_EQ(program.desktop.takeMessage(), "用户名或密码不正确,请重新输入!") << text;
            EXPECT_EQ(program.rows("Select 帐号密码 From 员工档案"), std::vector<std::string>{"one"});
        }
    EXPECT_EQ(program.app.screens.loaded("MDIForm1"), nullptr);
    std::remove(path.c_str());
}

}  // namespace
}  // namespace desk
