#include "reference/agencies.h"
#include "reference/customer_dictionaries.h"
#include "reference/lead_settings.h"
#include "reference/personnel.h"
#include "support/transcripts_of_room.h"

namespace desk {
namespace {

TRANSCRIPTS_OF_ROOM((offerScreens<Frm人员设置, Frm中介公司设置, Frm客户相关信息设置, Frm引驻设置>))

}  // namespace
}  // namespace desk
