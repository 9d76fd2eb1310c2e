#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "desktop/person.h"
#include "desktop/screen_list.h"
#include "support/test_program.h"

namespace desk::desktop {

/// A program of two offices, whose screens are laid out before a person.
class ByHand : public testing::Test {
  protected:
    explicit ByHand(const std::function<void(TestProgram&)>& fill = [](TestProgram&) {}) {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        fill(program);
        offerScreens(program.app);
        program.enter();
    }

    /// A screen, loaded as it is at its first use.
    template <class S>
    S& loaded() {
        return program.app.screens.get<S>();
    }
    /// What `check` finds on each screen that a window is made for.
    void onEachScreen(const std::function<void(Screen&, QWidget&)>& check) {
        for (const KnownScreen& known : screenList()) {
            if (known.layOut == nullptr) continue;
            SCOPED_TRACE(known.name);
            Screen& screen = program.app.screens.get(known.name);
            check(screen, *std::unique_ptr<QWidget>(layoutOf(screen)));
        }
    }
    static void clickLine(const Person& person, const Control& list, std::initializer_list<int> rows,
                          int column = 0) {
        QWidget& view = person.at(list);
        Person::click(viewportOf(view), lineOf(view, rows, column));
    }
    /// The names of what Tab comes to, beginning where the focus is.
    static std::string wayByTab(const Person& person, int steps) {
        std::string way;
        for (int i = 0; i < steps; ++i) {
            way += Person::focused() + " ";
            person.press({Qt::Key_Tab});
        }
        return way;
    }

    TestProgram program;
};

/// One such screen, in a window of that size.
template <class S>
class ScreenByHand : public ByHand {
  protected:
    explicit ScreenByHand(
        QSize size, const std::function<void(TestProgram&)>& fill = [](TestProgram&) {})
        : ByHand(fill) {
        person.window().resize(size);
    }
    void clickLine(const Control& list, std::initializer_list<int> rows, int column = 0) const {
        ByHand::clickLine(person, list, rows, column);
    }

    S& screen = loaded<S>();
    const Person person{layoutOf(screen)};
};

}  // namespace desk::desktop
