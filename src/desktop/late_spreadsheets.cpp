#include "desktop/late_spreadsheets.h"

#include <QCoreApplication>
#include <QLibrary>

#include "base/failure.h"
#include "desktop/convert.h"

namespace desk::desktop {

LateSpreadsheets::LateSpreadsheets()
    : module_(QCoreApplication::applicationDirPath() + "/tenant-desk-workbooks") {}

Spreadsheets& LateSpreadsheets::loaded() {
    if (loaded_ == nullptr) {
        QLibrary library(module_);
        // It stays in the process when this object has gone: failures that it throws may outlive any call.
        using Offer = Spreadsheets* (*)();
        const auto offer = reinterpret_cast<Offer>(library.resolve("deskSpreadsheets"));
        if (offer == nullptr)
            throw RuntimeFailure(failure::fileNotFound, "程序的电子表格组件不能装入，请重新安装程序：" +
                                                            utf8(library.errorString()));
        loaded_ = offer();
    }
    return *loaded_;
}

}  // namespace desk::desktop
