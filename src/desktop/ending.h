#pragma once

#include <QString>

namespace desk::desktop {

/// Why the program cannot go on.
struct Ending {
    QString title;
    QString description;
    QString statement;  ///< that the database refused, empty where none was sent
};

/// Tells it to the person and on stderr, offers what stands in the screens' fields for copying, and ends the
/// process with exit code 1.
[[noreturn]] void endWith(const Ending& ending);

/// The captions and texts of the fields in all shown windows, a line each below the window's title. Empty
/// fields and passwords are left out.
QString textsOfShownFields();

}  // namespace desk::desktop
