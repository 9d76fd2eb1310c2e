#pragma once

#include "base/failure.h"
#include "ui/fields.h"
#include "ui/screen.h"

namespace desk {

/// The dialog by which a ticket is taken back.
class 退票窗体 : public Screen {
  public:
    using Screen::Screen;

    TextBox Text1{*this, "Text1"};  ///< the ticket
    TextBox Text2{*this, "Text2"};  ///< its tag: the total
    TextBox Text3{*this, "Text3"};  ///< the reason; its tag: the `ID` of the ticket
    TextBox Text4{*this, "Text4"};  ///< the book
};

/// What the tax invoice screen knows of screens that only the surrounding property system has. Nothing of it
/// is bound in this program.
struct 外部窗体 {
    Button* 前台收款Command16 = nullptr;
    Frame* 前台收款Frame3 = nullptr;
    Button* 内换票处理Command5 = nullptr;
    Button* 调换票处理Command4 = nullptr;
    退票窗体* 退票 = nullptr;

    /// What is bound. Fails with 424 where nothing is.
    template <class Bound>
    static Bound& 须有(Bound* bound) {
        if (bound == nullptr) throw RuntimeFailure(failure::objectRequired, "要求对象");
        return *bound;
    }
};

}  // namespace desk
