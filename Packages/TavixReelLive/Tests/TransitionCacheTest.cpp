// Which pictures of transitions a preview takes from the one before.
#include "TavixReelLive/Preview/TransitionCache.h"
#include "TavixPlatform/Media/Tests/TestClip.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace tavix {
namespace {

TEST(TransitionPictures, StayAsLongAsTheirTimesAndTheRecordingDo) {
    const testsupport::TemporaryFolder folder;
    const std::filesystem::path video = folder / "raw.mov";
    const auto record = [&](int frames) {
        media::tests::makeClip({.path = video, .times = media::tests::evenTimes(frames)});
    };
    record(90);
    ReelFootage footage{.video = video, .size = {64, 64}, .durationSec = 3, .trimEndSec = 3};
    EffectsSpec spec;
    ScreenTransition fade;
    fade.style = TransitionStyle::fade;
    fade.atSec = 1;
    fade.revealSec = 2;
    spec.setTransitions({fade});
    TransitionCache cache;
    const auto taken = [&] {
        const auto inputs = cache.inputs(spec, footage, {});
        EXPECT_EQ(inputs.size(), 1u);
        EXPECT_EQ(inputs[0].transition, spec.transitions()[0]);
        // The right ones, wherever they come from.
        EXPECT_EQ(media::tests::numberIn(inputs[0].outgoing),
            std::lround((footage.trimStartSec + spec.transitions()[0].atSec) * 30));
        return inputs[0].outgoing.hash();   // bitmaps count by identity
    };
    const struct {
        const char* name;
        bool isKept;
        std::function<void()> change;
    } cases[] = {
        {"nothing", true, [] {}},
        {"a style", true,
            [&] {
                fade.style = TransitionStyle::wipe;
                spec.setTransitions({fade});
            }},
        {"a look", true, [&] { spec.background.padding = 3; }},
        {"a time", false,
            [&] {
                fade.atSec = 1.5;
                spec.setTransitions({fade});
            }},
        {"the trim", false, [&] { footage.trimStartSec = 0.5; }},
        {"the recording", false, [&] { record(89); }},
    };
    Digest before = taken();
    for (const auto& c : cases) {
        c.change();
        const Digest now = taken();
        EXPECT_EQ(now == before, c.isKept) << c.name;
        before = now;
    }
}

}   // namespace
}   // namespace tavix
