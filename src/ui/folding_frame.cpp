#include "ui/folding_frame.h"

namespace desk {

FoldingFrame::FoldingFrame(Place place, std::string name, std::string caption)
    : Frame(place, std::move(name), std::move(caption)), 显示(place, "显示", "显示", LinkStyle::strip) {
    显示.setVisible(false);
    隐藏.clicked += [this] { fold(); };
    显示.clicked += [this] { unfold(); };
}

// What is hidden would give its focus to whatever comes next: so the focus leaves first.

void FoldingFrame::fold() {
    显示.setVisible(true);
    显示.focus();
    setVisible(false);
}

void FoldingFrame::unfold() {
    setVisible(true);
    隐藏.focus();
    显示.setVisible(false);
}

}  // namespace desk
