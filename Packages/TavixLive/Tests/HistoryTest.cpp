#include "TavixLive/Model/History.h"
#include "RandomEdits.h"
#include "TavixCore/Paths/Difference.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Model/ScenePatch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

namespace tavix {
namespace {

History::Moment momentOf(const EditState& state, double sec = 0) {
    return {std::make_shared<const EditState>(state), sec};
}

// Undo leads to the first document, through every one in between; redo to the last. Whole, packed, or some of
// both.
TEST(History, LeadsBackAndForthThroughEveryDocument) {
    for (unsigned seed = 1; seed <= 8; ++seed) {
        std::mt19937 random(seed);
        History history({.mostWholeBytes = seed % 2 ? 0u : 20000u, .mostUnpacked = seed % 3 ? 1000u : 5u});
        std::vector<EditState> states{testing::firstState()};
        for (int i = 0; i < 120; ++i) {
            EditState next = states.back();
            testing::editAnything(next, random);
            if (next.spec == states.back().spec) continue;
            const double sec = double(states.size());
            history.record(
                "step " + std::to_string(i), momentOf(states.back(), sec - 1), momentOf(next, sec));
            states.push_back(next);
            if (random() % 3 == 0)
                if (const auto step = history.nextUnpacked()) history.put(History::pack(*step));
        }
        if (seed > 4) history.packAll();
        EXPECT_EQ(history.stepCount(), states.size() - 1);
        const std::string first = encodedJson(states.front().spec);
        for (std::size_t i = states.size() - 1; i > 0; --i) {
            const auto before = history.undo(states[i]);
            ASSERT_TRUE(before);
            ASSERT_EQ(before->state->spec, states[i - 1].spec) << seed << " step " << i;
            EXPECT_EQ(before->state->selection, states[i - 1].selection);
            EXPECT_EQ(before->playheadSec, double(i - 1));
            if (i == 1) {
                EXPECT_EQ(encodedJson(before->state->spec), first);
            }
            if (random() % 4 == 0) history.packAll();
        }
        EXPECT_FALSE(history.undo(states[0]));
        for (std::size_t i = 0; i + 1 < states.size(); ++i)
            ASSERT_EQ(history.redo(states[i])->state->spec, states[i + 1].spec);
        EXPECT_FALSE(history.redo(states.back()));
    }
}

TEST(History, ForgetsWhatWasUndoneWhenSomethingElseIsDone) {
    History history;
    EditState a = testing::firstState(), b = a, c = a;
    b.spec.seed = 1;
    c.spec.seed = 2;
    history.record("b", momentOf(a), momentOf(b));
    EXPECT_EQ(*history.undoName(), "b");
    const auto step = history.nextUnpacked();
    ASSERT_TRUE(step);
    ASSERT_TRUE(history.undo(b));
    EXPECT_EQ(*history.redoName(), "b");
    history.record("c", momentOf(a), momentOf(c));
    EXPECT_EQ(history.redoName(), nullptr);
    history.put(History::pack(*step));   // of a step that has gone
    EXPECT_EQ(history.byteCount(), 0u);
    EXPECT_EQ(*history.undo(c)->state, a);
}

TEST(History, KeepsWithinItsMemory) {
    History history({.mostSteps = 50, .mostBytes = 20000, .mostWholeBytes = 40000});
    EditState now = testing::firstState();
    std::vector<std::weak_ptr<const EditState>> wholes;
    for (int i = 1; i <= 300; ++i) {
        const History::Moment before = momentOf(now);
        now.content<TextContent>(0, 0)->text = std::string(std::size_t(i % 7) * 100, 'x') + std::to_string(i);
        history.record("rename", before, momentOf(now));
        wholes.push_back(before.state);
        history.packAll();
        EXPECT_LE(history.stepCount(), 50u);
        EXPECT_LE(history.byteCount(), 20000u);
    }
    history.takeSpent();
    const auto kept =
        std::size_t(std::ranges::count_if(wholes, [](const auto& whole) { return !whole.expired(); }));
    EXPECT_GT(kept, 0u) << "the next undo takes no time";
    EXPECT_LE(kept * encodedJson(now.spec).size(), 80000u);
    EXPECT_GT(history.stepCount(), 5u);
    while (const auto before = history.undo(now)) now = *before->state;
    EXPECT_FALSE(now.content<TextContent>(0, 0)->text.ends_with("300"));
}

TEST(History, TellsItsLastChangeAsAPatch) {
    History history;
    EditState a = testing::firstState(), b = a;
    b.spec.scenes[0].durationSec = 7;
    history.record("longer", momentOf(a), momentOf(b));
    EXPECT_EQ(applyTo(a.spec, history.lastChange(b)), b.spec);
    history.packAll();
    EXPECT_EQ(applyTo(a.spec, history.lastChange(b)), b.spec);
}

// Scene by scene or all at once, a patch leads to the same document, or to the same complaint.
TEST(ScenePatch, FollowsAPatchAsTheWholeDocumentDoes) {
    for (unsigned seed = 1; seed <= 6; ++seed) {
        std::mt19937 random(seed);
        EditState state = testing::firstState();
        for (int i = 0; i < 60; ++i) {
            const CompositionSpec before = state.spec;
            for (int edits = 1 + int(random() % 3); edits > 0; --edits) testing::editAnything(state, random);
            if (i % 7 == 0) std::ranges::shuffle(state.spec.scenes, random);
            if (i % 5 == 0) state.spec.seed = std::int64_t(random() % 100);
            for (const bool isBack : {false, true}) {
                const CompositionSpec &from = isBack ? state.spec : before,
                                      &to = isBack ? before : state.spec;
                const JsonPatch patch = diff(from, to);
                ASSERT_EQ(followed(from, patch), applyTo(from, patch)) << seed << " edit " << i;
                ASSERT_EQ(followed(from, patch), to);
            }
        }
    }
    const CompositionSpec spec = testing::firstState().spec;
    using Kind = PatchOperation::Kind;
    const auto at = [](const char* path) { return JsonPointer::parse(path); };
    for (const PatchOperation& wrong : {PatchOperation{Kind::remove, at("/scenes/99"), {}, {}},
             {Kind::remove, at("/scenes/0/nothing"), {}, {}}, {Kind::replace, at("/scenes/0"), {}, Json(3)},
             {Kind::add, at("/scenes/99"), {}, Json(3)}, {Kind::replace, at("/seed"), {}, Json("x")}}) {
        EXPECT_THROW(applyTo(spec, {wrong}), Failure);
        EXPECT_THROW(followed(spec, {wrong}), Failure) << wrong.path.text();
    }
}

}   // namespace
}   // namespace tavix
