#pragma once

#include "ui/fields.h"

namespace desk {

/// How a link lies: a word in a line, or along an edge that it fills, its text running down.
enum class LinkStyle { word, strip };

/// A label that leads somewhere: it takes the focus, and a click, Space and Enter follow it.
class Link : public Label {
  public:
    Link(Place place, std::string name, std::string caption, LinkStyle style = LinkStyle::word)
        : Label(place, std::move(name), std::move(caption)), style_(style) {}

    LinkStyle style() const { return style_; }

  private:
    LinkStyle style_;
};

}  // namespace desk
