#include "TavixLive/Model/History.h"
#include "RandomEdits.h"
#include "TavixCore/Support/Document.h"

#include <gtest/gtest.h>

#include <random>

namespace tavix {
namespace {

// Undo leads to the first document, through every one in between; redo to the last.
TEST(History, LeadsBackAndForthThroughEveryDocument) {
    for (unsigned seed = 1; seed <= 8; ++seed) {
        std::mt19937 random(seed);
        History history;
        std::vector<History::Moment> moments{{testing::firstState(), 0}};
        for (int i = 0; i < 120; ++i) {
            History::Moment next = moments.back();
            testing::editAnything(next.state, random);
            next.playheadSec = i;
            if (next.state.spec == moments.back().state.spec) continue;
            history.record("step " + std::to_string(i), moments.back(), next);
            moments.push_back(next);
        }
        EXPECT_EQ(history.stepCount(), moments.size() - 1);
        const std::string first = encodedJson(moments.front().state.spec);
        for (std::size_t i = moments.size() - 1; i > 0; --i) {
            const auto before = history.undo(moments[i].state);
            ASSERT_TRUE(before);
            ASSERT_EQ(before->state.spec, moments[i - 1].state.spec) << seed << " step " << i;
            EXPECT_EQ(before->state.selection, moments[i - 1].state.selection);
            EXPECT_EQ(before->playheadSec, moments[i - 1].playheadSec);
            if (i == 1) {
                EXPECT_EQ(encodedJson(before->state.spec), first);
            }
        }
        EXPECT_FALSE(history.undo(moments[0].state));
        for (std::size_t i = 0; i + 1 < moments.size(); ++i)
            ASSERT_EQ(history.redo(moments[i].state)->state.spec, moments[i + 1].state.spec);
        EXPECT_FALSE(history.redo(moments.back().state));
    }
}

TEST(History, ForgetsWhatWasUndoneWhenSomethingElseIsDone) {
    History history;
    History::Moment a{testing::firstState(), 0}, b = a, c = a;
    b.state.spec.seed = 1;
    c.state.spec.seed = 2;
    history.record("b", a, b);
    history.record("nothing", b, b);
    EXPECT_EQ(*history.undoName(), "b");
    ASSERT_TRUE(history.undo(b.state));
    EXPECT_EQ(*history.redoName(), "b");
    history.record("c", a, c);
    EXPECT_EQ(history.redoName(), nullptr);
    EXPECT_EQ(history.undo(c.state)->state, a.state);
}

TEST(History, KeepsWithinItsMemory) {
    History history({.mostSteps = 50, .mostBytes = 20000});
    History::Moment now{testing::firstState(), 0};
    for (int i = 1; i <= 300; ++i) {
        const History::Moment before = now;
        now.state.content<TextContent>(0, 0)->text =
            std::string(std::size_t(i % 7) * 100, 'x') + std::to_string(i);
        history.record("rename", before, now);
        EXPECT_LE(history.stepCount(), 50u);
        EXPECT_LE(history.byteCount(), 20000u);
    }
    EXPECT_GT(history.stepCount(), 5u);
    while (const auto before = history.undo(now.state)) now = *before;
    EXPECT_FALSE(now.state.content<TextContent>(0, 0)->text.ends_with("300"));
}

TEST(History, TellsItsLastChangeAsAPatch) {
    History history;
    History::Moment a{testing::firstState(), 0}, b = a;
    b.state.spec.scenes[0].durationSec = 7;
    history.record("longer", a, b);
    EXPECT_EQ(applyTo(a.state.spec, history.lastChange(b.state)), b.state.spec);
}

}   // namespace
}   // namespace tavix
