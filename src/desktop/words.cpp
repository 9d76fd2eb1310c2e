#include "desktop/words.h"

#include <string_view>

namespace desk::desktop {

QString Words::translate(const char* context, const char* source, const char*, int) const {
    // How the file dialog calls the kinds of files.
    if (context != std::string_view("QAbstractFileIconProvider")) return {};
    const std::string_view word(source);
    if (word == "Folder" || word == "File Folder") return "文件夹";
    if (word == "%1 File") return "%1 文件";
    if (word == "File") return "文件";
    if (word == "Drive") return "驱动器";
    return {};
}

}  // namespace desk::desktop
