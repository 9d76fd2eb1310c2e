#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ui/screen.h"

namespace desk {

/// A screen as lines, in the order of its controls: what each one is called and how it looks and stands now.
/// Rows of grids, nodes of trees and lines of choices are lines of their own, so that two portraits tell what
/// changed.
using Portrait = std::vector<std::pair<std::string, std::string>>;

Portrait portraitOf(const Screen& screen);

/// The lines of `now` that `before` lacks or has otherwise, and those of `before` that have gone.
std::vector<std::string> changes(const Portrait& before, const Portrait& now);

}  // namespace desk
