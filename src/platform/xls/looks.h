#pragma once

#include <map>

#include "platform/spreadsheets.h"
#include "platform/xls/globals.h"

namespace desk::xls {

/// The format records of a workbook. Those of new looks come behind the old ones, so that old cells keep
/// theirs.
class Looks {
  public:
    explicit Looks(Globals& globals) : globals_(globals) {}

    /// The number of the format record of that look, made if there is none yet. Fails with 1004 when the
    /// workbook has too many.
    std::uint16_t of(const CellLook& look);
    /// Of cells without a look of their own.
    std::uint16_t usual() const;
    /// Brings the check sum over the format records up to date, where the workbook has one.
    void finish();

  private:
    std::uint16_t fontOf(double size);
    std::uint16_t numberFormatOf(CellLook::Format format);

    Globals& globals_;
    std::map<CellLook, std::uint16_t> known_;
    std::map<int, std::uint16_t> fonts_;  ///< by height in twips
};

}  // namespace desk::xls
