// Films of real pages in a real browser. Without one these tests are skipped.
#pragma once

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixRecorder/Browser/Browser.h"
#include "TavixRecorder/Driver/Recorder.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace tavix::recorder {

inline constexpr imaging::Size windowSize{360, 640};

inline Step stepOn(Interaction interaction, const char* id) {
    Step step;
    step.interaction = interaction;
    step.target = {
        .kind = Target::Kind::viewId, .identifier = id, .label = std::nullopt, .textValue = std::nullopt};
    return step;
}

class RecorderTest : public ::testing::Test {
protected:
    void SetUp() override {
        const auto browser = findBrowser();
        if (!browser) GTEST_SKIP() << "There is no browser here; ./dev setup installs one where it can.";
        settings_.browser = *browser;
        settings_.sizePx = windowSize;
        settings_.pixelsPerPoint = 1;
        settings_.fps = 30;
        settings_.flow.name = "test";
        settings_.flow.entry.rootViewType = "/";
        settings_.address = folder_.path().string();
        settings_.video = folder_ / "raw.mov";
    }

    // In which OTHER stands for that origin.
    void page(std::string html, const std::string& other = {}) {
        constexpr std::string_view word = "OTHER";
        for (std::size_t at; (at = html.find(word)) != html.npos;) html.replace(at, word.size(), other);
        std::ofstream(folder_ / "index.html")
            << "<!doctype html><meta name=viewport content='width=device-width'><style>*{margin:0}</style>"
            << html;
    }
    void steps(std::vector<Step> all) {
        for (std::size_t i = 0; i < all.size(); ++i) all[i].index = static_cast<std::int64_t>(i);
        settings_.flow.steps = std::move(all);
    }
    Recording recorded() { return record(settings_, {}); }
    std::string failure() {
        try {
            recorded();
        } catch (const Failure& failure) {
            return failure.message();
        }
        return "nothing";
    }
    // Calls with each frame's pixels, in order.
    template <class Look> void eachFrame(const Look& look) {
        media::VideoFile file(settings_.video);
        imaging::Evaluator evaluator({.threadCount = 1, .cacheBytes = 0});
        const auto frames = file.framesFrom(0, std::numeric_limits<double>::infinity(), media::Pace::steady);
        while (auto frame = frames->next())
            look(evaluator.draw(frame->image(), imaging::pixelsCovering(frame->image().extent())));
    }
    // Hashes of all frames, so that the first one that differs can be named.
    std::vector<std::size_t> frames() {
        std::vector<std::size_t> hashes;
        eachFrame([&](const imaging::Bitmap& frame) {
            std::string bytes;
            for (int row = 0; row < frame.size().height; ++row)
                bytes.append(reinterpret_cast<const char*>(frame.view().row(row)),
                    static_cast<std::size_t>(frame.size().width) * 4);
            hashes.push_back(std::hash<std::string>()(bytes));
        });
        return hashes;
    }
    Recording expectTheSameAgain() {
        const Recording first = recorded();
        const auto before = frames();
        EXPECT_EQ(recorded().timeline, first.timeline);
        const auto again = frames();
        EXPECT_EQ(before.size(), again.size());
        const auto [a, b] = std::ranges::mismatch(before, again);
        EXPECT_TRUE(a == before.end()) << "frame " << a - before.begin() << " of " << before.size();
        return first;
    }
    static int green(const imaging::Bitmap& frame, int x, int y) { return frame.view().row(y)[x * 4 + 1]; }

    testsupport::TemporaryFolder folder_;
    RecorderSettings settings_;
};

}   // namespace tavix::recorder
