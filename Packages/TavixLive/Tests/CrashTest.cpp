// Sessions that are killed in the middle of editing and saving. TAVIX_CRASHES names how many, and
// TAVIX_CRASH_SECONDS for how long each of them works with the usual delay of its journal.
#include "FakeMaker.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Project/CompositionProjectService.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Saving/JournalKeeper.h"
#include "TavixPlatform/System/ChildProcess.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <poll.h>
#include <random>
#include <sstream>
#include <unistd.h>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

double setting(const char* name, double usual) {
    const char* told = std::getenv(name);
    return told ? std::atof(told) : usual;
}

// One bundle, and the session that works on it.
class Desk {
public:
    explicit Desk(double delaySec) : delaySec_(delaySec) {
        fs::create_directory(bundle_);
        CompositionProjectBundle::save(testing::smallFilm(), bundle_);
    }
    void start(unsigned seed) {
        system::ChildSettings settings{TAVIX_LIVE_EDITING,
            {bundle_.string(), (folder_ / "state").string(), std::to_string(delaySec_), std::to_string(seed)},
            {{STDOUT_FILENO, system::ChildPipe::Direction::fromChild}}, {}};
        child_ = std::make_unique<system::ChildProcess>(settings);
        heard_.clear();
        lastKept_ = 0;
        edits_.clear();
    }
    // Until it is at work.
    void await() {
        const auto most = Clock::now() + std::chrono::seconds(30);
        while (edits_.empty() && Clock::now() < most) listen(Clock::now() + std::chrono::milliseconds(20));
    }
    // What it says until then; each line with the time at which it was heard.
    void listen(Clock::time_point until) {
        for (;;) {
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now());
            pollfd pipe{child_->descriptor(STDOUT_FILENO), POLLIN, 0};
            if (left.count() <= 0 || ::poll(&pipe, 1, int(left.count())) <= 0 || !hear()) return;
        }
    }
    void kill() {
        ::kill(child_->id(), SIGKILL);
        ASSERT_EQ(child_->wait(20), 128 + SIGKILL) << "it was at work until then";
        killedAt_ = Clock::now();
        while (hear()) {}
        child_.reset();
    }
    // The bundle is whole, and what was kept is there.
    void judge() {
        std::int64_t inBundle = 0, inJournal = 0;
        ASSERT_NO_THROW(inBundle = CompositionProjectService::load(bundle_).spec.seed);
        for (const LostWork& one : LostWork::find(folder_ / "state" / "journals"))
            inJournal = std::max(inJournal, decodeValue<CompositionSpec>(one.read().document()).seed);
        const std::int64_t back = std::max(inBundle, inJournal);
        EXPECT_GE(back, lastKept_);
        std::int64_t last = 0;
        for (const auto& [number, at] : edits_) {
            last = number;
            if (killedAt_ - at > std::chrono::seconds(5)) {
                EXPECT_GE(back, number) << "made more than five seconds before";
            }
        }
        EXPECT_LE(back, std::max(last, back_));
        lost += last > back ? last - back : 0;
        made += std::int64_t(edits_.size());
        recovered += inJournal > inBundle;
        back_ = back;
    }

    std::int64_t made = 0, lost = 0;   // changes
    int recovered = 0;                 // sessions

private:
    bool hear() {
        char bytes[4096];
        const ssize_t count = ::read(child_->descriptor(STDOUT_FILENO), bytes, sizeof bytes);
        if (count <= 0) return false;
        heard_.append(bytes, std::size_t(count));
        for (std::size_t end; (end = heard_.find('\n')) != std::string::npos; heard_.erase(0, end + 1)) {
            std::istringstream line(heard_.substr(0, end));
            std::string what;
            std::int64_t number = 0;
            line >> what >> number;
            if (what == "edit")
                edits_.emplace_back(number, Clock::now());
            else
                lastKept_ = std::max(lastKept_, number);
        }
        return true;
    }

    testsupport::TemporaryFolder folder_;
    fs::path bundle_ = folder_ / "film.tavixcomp";
    double delaySec_;
    std::unique_ptr<system::ChildProcess> child_;
    std::string heard_;
    std::int64_t lastKept_ = 0, back_ = 1;
    std::vector<std::pair<std::int64_t, Clock::time_point>> edits_;
    Clock::time_point killedAt_;
};

TEST(Crash, CostsNoBundleAndNothingThatWasKept) {
    const double sec = setting("TAVIX_CRASH_SECONDS", 0);
    const int crashes = int(setting("TAVIX_CRASHES", 16)), together = sec > 0 ? 8 : 2;
    std::mt19937 random(unsigned(setting("TAVIX_CRASH_SEED", 1)));
    std::vector<std::unique_ptr<Desk>> desks;
    for (int i = 0; i < together; ++i)
        desks.push_back(std::make_unique<Desk>(sec > 0 ? JournalKeeper::usualDelaySec : 0.02));
    for (int round = 0; round < crashes; round += together) {
        for (const auto& desk : desks) desk->start(unsigned(random()));
        for (const auto& desk : desks) desk->await();
        const auto start = Clock::now();
        std::vector<std::pair<Clock::time_point, Desk*>> ends;
        for (const auto& desk : desks) {
            const double part = double(random() % 1000) / 1000;
            const double atSec = part * (sec > 0 ? sec : 0.5);
            ends.emplace_back(
                start + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(atSec)),
                desk.get());
        }
        std::ranges::sort(ends);
        for (const auto& [end, desk] : ends) {
            for (auto now = Clock::now(); now < end; now = Clock::now())
                for (const auto& [later, other] : ends)
                    if (later >= end)
                        other->listen(std::min(end, Clock::now() + std::chrono::milliseconds(5)));
            desk->kill();
            desk->judge();
            if (::testing::Test::HasFatalFailure()) return;
        }
    }
    std::int64_t made = 0, lost = 0;
    int recovered = 0;
    for (const auto& desk : desks) {
        made += desk->made;
        lost += desk->lost;
        recovered += desk->recovered;
    }
    std::printf("%d sessions killed; of %lld changes %lld lost; %d sessions brought back\n", crashes,
        static_cast<long long>(made), static_cast<long long>(lost), recovered);
    EXPECT_GT(made, crashes);
    EXPECT_GT(recovered, 0);
}

}   // namespace
}   // namespace tavix
