#include "intent/approval.h"
#include "intent/approval_path.h"
#include "intent/letter.h"
#include "intent/unit_map.h"
#include "support/transcripts_of_room.h"

namespace desk {
namespace {

constexpr auto offer = offerScreens<Frm意向书审批路径设置, Frm意向书信息, Frm意向书审批, Frm房源一览表>;

TRANSCRIPTS_OF_ROOM(offer)

/// Those of the map stand apart: how many units lie side by side is a matter of the window, which the
/// scripts set themselves.
class Maps : public testing::TestWithParam<std::string> {};

TEST_P(Maps, Hold) {
    Transcript(TEST_FOLDER "/maps/" + GetParam() + ".txt", offer).check();
}
INSTANTIATE_TEST_SUITE_P(Room, Maps, testing::ValuesIn(transcriptsIn(TEST_FOLDER "/maps")),
                         [](const auto& named) { return named.param; });

}  // namespace
}  // namespace desk
