#pragma once

#include <string_view>

namespace desk::xls {

/// Whether a workbook is encrypted by the password that the format has for books which only protect their
/// sheets, `filePass` being the record that tells of the encryption. False for any that cannot be told.
bool hasDefaultPassword(std::string_view filePass);

}  // namespace desk::xls
