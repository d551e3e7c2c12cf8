#include "TavixBase/Failure.h"
#include "TavixCore/Values/SeededRandom.h"
#include "TavixRecorder/Browser/Browser.h"
#include "TavixRecorder/Browser/MessageSplitter.h"
#include "TavixRender/Encoding/RenderStopped.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace tavix::recorder {

namespace {

using namespace std::string_literals;

TEST(MessageSplitter, AnyPiecesGiveTheSameMessages) {
    SeededRandom random(9);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> sent;
        std::string stream;
        for (auto count = random.next() % 8; count > 0; --count) {
            sent.emplace_back(random.next() % 40, char('a' + random.next() % 26));
            stream += sent.back() + '\0';
        }
        MessageSplitter splitter(64);
        std::vector<std::string> received;
        for (std::size_t at = 0; at < stream.size();) {
            const std::size_t size = 1 + random.next() % 30;
            splitter.add(std::string_view(stream).substr(at, size));
            at += size;
            while (random.next() % 3 != 0) {
                auto message = splitter.next();
                if (!message) break;
                received.push_back(*message);
            }
        }
        while (auto message = splitter.next()) received.push_back(*message);
        ASSERT_EQ(received, sent) << "round " << round;
    }
}

TEST(MessageSplitter, HoldsNoMoreThanItsBound) {
    MessageSplitter splitter(8);
    splitter.add("12345678");
    EXPECT_THROW(splitter.add("9"), Failure);
    splitter.add("again\0"s);
    EXPECT_EQ(splitter.next(), "again");
    splitter.add("first\0"s);
    EXPECT_THROW(splitter.add("second\0the rest is long"s), Failure);
}

class BadBrowser : public ::testing::Test {
protected:
    Browser::Settings settings(const std::string& manner) {
        ::setenv("TAVIX_BAD_BROWSER", manner.c_str(), 1);
        return {.program = TAVIX_BAD_BROWSER_PROGRAM,
            .pixelsPerPoint = 1,
            .hosts = {},
            .startBoundSec = manner == "silent" ? 0.2 : 30};
    }
    // What is said of it, and that it is gone afterwards, with its profile.
    std::string told(const std::string& manner, double mostSec = 30) {
        try {
            Browser browser(settings(manner), stop_.get_token());
            browser.devTools().call("Page.enable", {}, mostSec);
        } catch (const Failure& failure) {
            return failure.message();
        }
        return "nothing";
    }
    std::stop_source stop_;
};

TEST_F(BadBrowser, IsEndedAndTold) {
    const struct {
        const char* manner;
        double mostSec;
        const char* sentence;
    } cases[] = {
        {"silent", 30, "The browser did not answer Browser.getVersion within 0 seconds."},
        {"hangs", 0.6, "The browser did not answer Page.enable within 1 seconds."},
        {"floods", 0.6, "The browser did not answer Page.enable within 1 seconds."},
        {"never ends", 60, "The browser sent a message of more than 128 megabytes."},
        {"babbles", 30, "The browser sent what is no message: \"{\"id\":2,\"."},
        {"leaves", 30, "The browser ended with status 3. Its last words: out of memory"},
        {"dies", 30, "The browser was ended by signal 11."},
        {"refuses", 30, "The browser refused Page.enable: 'X' wasn't found."},
        {"answers late and others", 30, "nothing"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.manner);
        const auto began = std::chrono::steady_clock::now();
        EXPECT_EQ(told(c.manner, c.mostSec), c.sentence);
        EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(60));
    }
}

TEST_F(BadBrowser, AStopEndsTheWait) {
    Browser browser(settings("hangs"), stop_.get_token());
    std::jthread stopper([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        stop_.request_stop();
    });
    EXPECT_THROW(browser.devTools().call("Page.enable"), RenderStopped);
}

TEST(ProfileFolder, IsGoneWithWhatLiesInIt) {
    std::filesystem::path place;
    {
        const ProfileFolder folder;
        place = folder.path();
        std::filesystem::create_directories(place / "profile/Default");
        std::ofstream(place / "profile/Default/Cookies") << "x";
    }
    EXPECT_FALSE(std::filesystem::exists(place));
}

}   // namespace

}   // namespace tavix::recorder
