#include "desktop/form_by_hand.h"
#include "desktop/hand_actor.h"
#include "desktop/screen_list.h"
#include "support/transcripts_of_room.h"

namespace desk::desktop {
namespace {

/// What hands do at the windows of screens, and at a form with a control of each kind.
class Hands : public testing::TestWithParam<std::string> {};

TEST_P(Hands, MeetWhatIsWrittenDown) {
    const auto offer = [](TestProgram& program) {
        offerScreens(program.app);
        program.app.screens.offer("form", [&program] {
            return std::make_unique<FormByHand>([&](const std::string& told) { program.machine.note(told); });
        });
    };
    Transcript(TEST_FOLDER "/hands/" + GetParam() + ".txt", offer, std::make_unique<HandActor>()).check();
}

INSTANTIATE_TEST_SUITE_P(All, Hands, testing::ValuesIn(transcriptsIn(TEST_FOLDER "/hands")),
                         [](const auto& named) { return named.param; });

}  // namespace
}  // namespace desk::desktop
