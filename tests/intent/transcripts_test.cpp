#include "intent/approval.h"
#include "intent/approval_path.h"
#include "intent/letter.h"
#include "support/transcripts_of_room.h"

namespace desk {
namespace {

TRANSCRIPTS_OF_ROOM((offerScreens<Frm意向书审批路径设置, Frm意向书信息, Frm意向书审批>))

}  // namespace
}  // namespace desk
