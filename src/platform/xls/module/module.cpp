#include "platform/xls/xls_spreadsheets.h"

/// What the program takes out of this module, once: it lives as long as the process.
extern "C" __attribute__((visibility("default"))) desk::Spreadsheets* deskSpreadsheets() {
    static desk::XlsSpreadsheets only;
    return &only;
}
