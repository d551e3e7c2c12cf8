#include "TavixLive/Saving/DocumentMerge.h"
#include "FakeMaker.h"
#include "TavixCore/Support/Document.h"

#include <gtest/gtest.h>

#include <random>

namespace tavix {
namespace {

CompositionSpec film() {
    CompositionSpec spec = testing::smallFilm();
    for (int i = 0; i < 4; ++i) {
        CompositionLayer layer;
        layer.id = "layer" + std::to_string(i);
        layer.content = TextContent{.text = "Words " + std::to_string(i)};
        spec.scenes[0].layers.push_back(layer);
    }
    return spec;
}

// Changes of values, and layers that go: what both sides do is never the same place of a list.
void edit(CompositionSpec& spec, std::mt19937& random) {
    std::vector<CompositionLayer>& layers = spec.scenes[0].layers;
    CompositionLayer& layer = layers[random() % layers.size()];
    switch (random() % 6) {
    case 0: layer.opacity = double(random() % 100) / 100; break;
    case 1: layer.position.x = double(random() % 1000); break;
    case 2: spec.seed = std::int64_t(random() % 100); break;
    case 3: spec.scenes[1].durationSec = 1 + double(random() % 9); break;
    case 4:
        if (layers.size() > 2) layers.erase(layers.begin() + std::ptrdiff_t(random() % layers.size()));
        break;
    default:
        if (auto* text = std::get_if<TextContent>(&layer.content))
            text->text = "Text " + std::to_string(random() % 50);
    }
}

// Whose side it is does not change what can be chosen, nor what comes of it.
TEST(DocumentMerge, IsTheSameSeenFromTheOtherSide) {
    std::mt19937 random(8);
    int conflicts = 0;
    for (int round = 0; round < 200; ++round) {
        const CompositionSpec base = film();
        CompositionSpec ours = base, theirs = base;
        for (int i = 0; i < 4; ++i) {
            edit(ours, random);
            edit(theirs, random);
        }
        MergeOf one(base, ours, theirs), other(base, theirs, ours);
        ASSERT_EQ(one.conflicts().size(), other.conflicts().size());
        conflicts += int(one.conflicts().size());
        one.chooseAll(MergeSide::theirs);
        EXPECT_TRUE(one.isDecided());
        EXPECT_EQ(one.document(), other.document()) << round;
        one.chooseAll(MergeSide::ours);
        other.chooseAll(MergeSide::theirs);
        EXPECT_EQ(one.document(), other.document()) << round;
    }
    EXPECT_GT(conflicts, 50);
}

TEST(DocumentMerge, TakesWhatOnlyOneSideChanged) {
    const CompositionSpec base = film();
    CompositionSpec ours = base, theirs = base;
    ours.scenes[0].layers[1].opacity = 0.5;
    theirs.scenes[0].layers[1].position.x = 7;
    theirs.scenes.insert(theirs.scenes.begin(), CompositionScene{.id = "new", .durationSec = 2});
    MergeOf merge(base, ours, theirs);
    EXPECT_TRUE(merge.conflicts().empty());
    CompositionSpec both = theirs;
    both.scenes[1].layers[1].opacity = 0.5;
    EXPECT_EQ(merge.document(), both);
    EXPECT_EQ(MergeOf(base, base, theirs).document(), theirs);
    EXPECT_EQ(MergeOf(base, ours, base).document(), ours);
}

TEST(DocumentMerge, LetsEachConflictBeChosenByItself) {
    const CompositionSpec base = film();
    CompositionSpec ours = base, theirs = base;
    ours.seed = 1;
    theirs.seed = 2;
    ours.scenes[0].layers[1].opacity = 0.5;
    theirs.scenes[0].layers.erase(theirs.scenes[0].layers.begin() + 1);   // changed here, removed there
    ours.scenes[1].layers.clear();                                        // and the other way round
    theirs.scenes[1].layers[0].opacity = 0.25;
    for (unsigned choice = 0; choice < 8; ++choice) {
        SCOPED_TRACE(choice);
        MergeOf merge(base, ours, theirs);
        ASSERT_EQ(merge.conflicts().size(), 3u);
        EXPECT_FALSE(merge.isDecided());
        for (std::size_t i = 0; i < 3; ++i)
            merge.choose(i, choice >> i & 1 ? MergeSide::theirs : MergeSide::ours);
        const auto isTheirs = [&](std::string_view path) {
            for (const auto& conflict : merge.conflicts())
                if (conflict.values.path.text() == path) return conflict.chosen == MergeSide::theirs;
            ADD_FAILURE() << path;
            return false;
        };
        const CompositionSpec document = merge.document();
        EXPECT_EQ(document.seed, isTheirs("/seed") ? 2 : 1);
        EXPECT_EQ(document.scenes[0].layers.size(), isTheirs("/scenes/0/layers/1") ? 4u : 5u);
        EXPECT_EQ(document.scenes[0].layers[1].id == "layer0", !isTheirs("/scenes/0/layers/1"));
        EXPECT_EQ(document.scenes[1].layers.size(), isTheirs("/scenes/1/layers/0") ? 1u : 0u);
        // Choices hold for the same conflicts of a later merge, and only for those.
        CompositionSpec later = theirs;
        later.seed = 3;
        MergeOf again(base, ours, later);
        again.chooseAsIn(merge.conflicts());
        for (const auto& conflict : again.conflicts())
            EXPECT_EQ(conflict.chosen.has_value(), conflict.values.path.text() != "/seed");
    }
}

// Two orders of a list: theirs keeps what only we have changed in it.
TEST(DocumentMerge, ChoosesTheOrderOfAList) {
    const CompositionSpec base = film();
    CompositionSpec ours = base, theirs = base;
    std::swap(ours.scenes[0].layers[1], ours.scenes[0].layers[2]);
    ours.scenes[0].layers[4].opacity = 0.5;
    std::swap(theirs.scenes[0].layers[1], theirs.scenes[0].layers[4]);
    MergeOf merge(base, ours, theirs);
    ASSERT_EQ(merge.conflicts().size(), 1u);
    merge.choose(0, MergeSide::theirs);
    CompositionSpec wanted = theirs;
    wanted.scenes[0].layers[1].opacity = 0.5;
    EXPECT_EQ(merge.document(), wanted);
}

}   // namespace
}   // namespace tavix
