#include "ui/screen.h"

#include <algorithm>

#include "ui/fields.h"

namespace desk {

Screen::Screen(std::string name, std::string caption, WindowKind kind, double width, double height)
    : name_(std::move(name)), caption_(std::move(caption)), kind_(kind), width_(width), height_(height) {}

Screen::~Screen() {
    *there_ = false;
}

void Screen::setCaption(std::string_view caption) {
    if (caption_ == caption) return;
    caption_ = caption;
    touched();
}

void Screen::setSize(double width, double height) {
    if (width == width_ && height == height_) return;
    width_ = width;
    height_ = height;
    resize();
}

void Screen::moveTo(double left, double top) {
    left_ = left;
    top_ = top;
    touched();
}

Control* Screen::control(std::string_view controlName) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const Control* control) { return control->name() == controlName; });
    return found == controls_.end() ? nullptr : *found;
}

void 清空文本框(Screen& screen) {
    // A text that goes may take other controls with it, or bring new ones.
    const auto before = screen.controls();
    const auto isThere = [&](Control* control) {
        const auto& now = screen.controls();
        return std::find(now.begin(), now.end(), control) != now.end();
    };
    for (Control* control : before)
        if (isThere(control))
            if (auto* box = dynamic_cast<TextBox*>(control)) box->setText("");
}

}  // namespace desk
