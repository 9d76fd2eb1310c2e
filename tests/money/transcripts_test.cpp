#include "money/deposits.h"
#include "money/receipt_printing.h"
#include "money/tax_invoice.h"
#include "support/transcripts_of_room.h"

namespace desk {
namespace {

TRANSCRIPTS_OF_ROOM((offerScreens<Frm意向金收取, Frm税控发票打印, Frm票据打印>))

}  // namespace
}  // namespace desk
