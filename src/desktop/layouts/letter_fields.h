#pragma once

#include <vector>

#include "desktop/layout.h"
#include "intent/letter_block.h"

namespace desk::desktop::layout {

/// A field and, behind it, the unit of its number.
QWidget* withUnit(Control& field, std::string_view unit);

/// The two days of a period.
QWidget* fromTo(Control& from, Control& to);

/// The lines of a letter that is read, three fields to a line, `more` behind its number.
QWidget* letterLines(意向书信息块& letter, std::vector<Field> more = {});

/// What a letter says at length: the tenant's background, and why it is asked for.
QWidget* letterTexts(意向书信息块& letter);

}  // namespace desk::desktop::layout
