#pragma once

#include <gtest/gtest.h>

#include "support/transcript.h"

namespace desk {

/// Makes the screens of those classes known to the program.
template <class... Screens>
void offerScreens(TestProgram& program) {
    (program.app.screens.offer(Screens::screenName,
                               [&program] { return std::make_unique<Screens>(program.app); }),
     ...);
}

}  // namespace desk

/// A test for each transcript in the folder "transcripts" of the room; `offer` makes the room's screens
/// known.
#define TRANSCRIPTS_OF_ROOM(offer)                                                         \
    class Transcripts : public testing::TestWithParam<std::string> {};                     \
    TEST_P(Transcripts, Holds) {                                                           \
        Transcript(TEST_FOLDER "/transcripts/" + GetParam() + ".txt", offer).check();      \
    }                                                                                      \
    INSTANTIATE_TEST_SUITE_P(Room, Transcripts,                                            \
                             testing::ValuesIn(transcriptsIn(TEST_FOLDER "/transcripts")), \
                             [](const auto& named) { return named.param; });
