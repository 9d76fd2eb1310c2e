#include "customers/assignment.h"
#include "customers/follow_up.h"
#include "customers/registration.h"
#include "support/transcripts_of_room.h"

namespace desk {
namespace {

TRANSCRIPTS_OF_ROOM((offerScreens<Frm引驻客户信息登记, Frm客户跟进信息分配, Frm客户跟进记录>))

}  // namespace
}  // namespace desk
