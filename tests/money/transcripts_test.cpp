#include "money/deposits.h"
#include "money/print_stand_ins.h"
#include "money/receipt_printing.h"
#include "support/transcripts_of_room.h"

namespace desk {
namespace {

TRANSCRIPTS_OF_ROOM((offerScreens<Frm意向金收取, 税控替身, Frm票据打印>))

}  // namespace
}  // namespace desk
