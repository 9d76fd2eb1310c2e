#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/failure.h"
#include "base/text.h"
#include "platform/xls/container.h"
#include "platform/xls/workbook.h"
#include "platform/xls/xls_spreadsheets.h"

namespace {

desk::Worksheet report() {
    desk::Worksheet sheet("分析");
    sheet.at(0, 0) = {"标题", desk::CellLook{.bordered = true, .fontSize = 18}};
    sheet.at(4, 1) = {"12.5", desk::CellLook{.format = desk::CellLook::Format::number}};
    return sheet;
}

std::string streamWithSheet(std::string_view stream, const desk::Worksheet& sheet) {
    return desk::join(desk::xls::withSheet(stream, sheet), "");
}

}  // namespace

/// Takes any bytes for a workbook file, and for the stream inside one. They are refused, or what is written
/// can be written to again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace desk;
    static const Worksheet sheet = report();
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const auto& write : {xls::fileWithSheet, streamWithSheet}) {
        std::string written;
        try {
            written = write(bytes, sheet);
        } catch (const RuntimeFailure&) {
            continue;
        }
        try {
            write(written, sheet);
        } catch (const RuntimeFailure&) {
            std::abort();
        }
    }
    return 0;
}
