// Films of real pages in a real browser. Without one these tests are skipped.
#include "TavixRecorder/Driver/Recorder.h"
#include "TavixCore/Support/Document.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixRecorder/Browser/Browser.h"
#include "TavixRecorder/Tests/SlowServer.h"
#include "TavixReel/Recording/PixelMarkAlignment.h"
#include "TavixRender/Recording/SyncFrameDetector.h"
#include "TestSupport/SourceTree.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace tavix::recorder {

namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::HasSubstr;

constexpr imaging::Size windowSize{360, 640};

Step stepOn(Interaction interaction, const char* id) {
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

// The page writes the number of each frame as twelve black or white blocks, by the time that it is told.
constexpr const char* numberedPage = R"(
<style>
@keyframes turn { to { transform: rotate(360deg) } }
@keyframes glow { 50% { box-shadow: 0 0 60px 20px red; filter: blur(3px) hue-rotate(90deg) } }
.a { width: 90px; height: 90px; background: conic-gradient(red, yellow, blue, red); animation: turn 1s linear infinite, glow .7s infinite }
p { font: 20px Inter, sans-serif; transition: letter-spacing .4s } .wide { letter-spacing: 6px }
</style>
<canvas id=number width=360 height=40></canvas><canvas id=noise width=360 height=200></canvas>
<div class=a></div><div class=a style='animation-direction:reverse'></div>
<video src=clip.mp4 width=160 height=90 muted loop autoplay></video>
<p id=text>The quick brown fox</p><button id=go style='height:60px;width:200px'>Go</button>
<script>
const pen = number.getContext('2d'), dust = noise.getContext('2d');
let first;
requestAnimationFrame(function draw(now) {
    first ??= now;
    const n = Math.round((now - first) * 60 / 1000);
    for (let bit = 0; bit < 12; ++bit) {
        pen.fillStyle = n >> bit & 1 ? '#fff' : '#000';
        pen.fillRect(bit * 30, 0, 30, 40);
    }
    for (let i = 0; i < 400; ++i) {
        dust.fillStyle = `hsl(${i * 7 + n * 3} 80% 50%)`;
        dust.fillRect((i * 37 + n * 5) % 360, (i * 53) % 200, 24, 24);
    }
    requestAnimationFrame(draw);
});
go.onclick = () => { text.classList.add('wide'); fetch('clip.mp4').then(r => r.blob()) };
</script>)";

void writeClip(const std::filesystem::path& file) {
    media::MovieWriter writer({.path = file, .sizePx = {160, 90}, .bitsPerSec = 400'000});
    for (int frame = 0; frame < 60; ++frame) {
        media::MovieWriter::Slot& slot = writer.acquire();
        for (int row = 0; row < 90; ++row)
            for (int column = 0; column < 160; ++column)
                slot.planes.planes[0][row * slot.planes.strideBytes[0] + column] =
                    static_cast<std::uint8_t>(40 + (column + frame * 4) % 160);
        writer.submit(slot, frame * 20);
    }
    writer.finish();
}

TEST_F(RecorderTest, NoFrameOfAHeavyPageIsTornRepeatedOrEarly) {
    page(numberedPage);
    writeClip(folder_ / "clip.mp4");
    settings_.fps = 60;
    steps({stepOn(Interaction::tap, "go")});
    settings_.flow.steps[0].dwellAfterMs = 1500;
    const Recording recording = recorded();
    std::vector<int> numbers;
    int greys = 0;
    eachFrame([&](const imaging::Bitmap& frame) {
        int number = 0;
        for (int bit = 0; bit < 12; ++bit) {
            const int top = green(frame, bit * 30 + 15, 8), bottom = green(frame, bit * 30 + 15, 32);
            greys += (top > 64 && top < 192) || std::abs(top - bottom) > 64;
            number |= (top > 128) << bit;
        }
        numbers.push_back(number);
    });
    EXPECT_EQ(greys, 0) << "blocks of two frames at once";
    ASSERT_EQ(static_cast<std::int64_t>(numbers.size()), recording.frameCount);
    ASSERT_GT(numbers.size(), 150u);
    for (std::size_t i = 1; i < numbers.size(); ++i)
        ASSERT_EQ(numbers[i], numbers[i - 1] + 1) << "frame " << i;
}

TEST_F(RecorderTest, TheExampleComesOutTheSameEachTime) {
    const auto example = testsupport::inSourceTree("Examples/steep");
    settings_.flow = decodeFile<FlowSpec>(example / "flow.json");
    settings_.address = example.string();
    settings_.sizePx = {390, 844};
    settings_.fps = 15;
    const Recording first = expectTheSameAgain();
    ASSERT_EQ(first.timeline.events.size(), settings_.flow.steps.size());
    double lastSec = 0;
    for (const Timeline::Event& event : first.timeline.events) {
        SCOPED_TRACE(event.label.value_or(""));
        EXPECT_GE(event.tSec, lastSec);
        ASSERT_TRUE(event.actionSec && event.endSec && event.regionPx);
        EXPECT_GT(*event.actionSec, event.tSec);
        EXPECT_GT(*event.endSec, *event.actionSec);
        lastSec = *event.endSec;
    }
    // The arc of the clock takes 2.6 s by the page's own hand, from the click, a tenth of a second after the
    // touch.
    const Timeline::Event& steeping = first.timeline.events[6];
    EXPECT_NEAR(*steeping.endSec - *steeping.actionSec, 2.7, 0.2);
}

// Whatever a page can ask for the time. It turns red where it is told something that lies between the tenths
// of a millisecond, or a time of a touch that is none of a frame.
constexpr const char* timedPage = R"(
<button id=go style='width:200px;height:60px;transition:.4s'>Go</button><pre id=said style='font-size:9px'></pre><style>
button:active { transform: scale(.8) } .wide { margin-left: 100px }</style><script>
document.body.style.background = '#0f0';
const say = (name, time) => {
    if (Math.abs(time * 10 - Math.round(time * 10)) > 1e-6) document.body.style.background = '#f00';
    said.textContent = `${name} ${time}\n` + said.textContent.slice(0, 400);
};
let shown = 0;
requestAnimationFrame(function frame(now) {
    say('frame', shown = now), say('clock', performance.now()), say('date', Date.now() % 100000);
    if (document.timeline.currentTime !== now) document.body.style.background = '#f00';
    requestAnimationFrame(frame);
});
setInterval(() => say('timer', performance.now()), 7);
for (const name of ['pointerdown', 'mousemove', 'click'])
    addEventListener(name, event => {
        say(name, event.timeStamp);
        if (event.timeStamp !== shown) document.body.style.background = '#f00';
    });
go.onclick = () => {
    go.classList.add('wide');
    said.animate([{ opacity: 0 }, { opacity: 1 }], 300).finished.then(() => say('done', performance.now()));
};
</script>)";

TEST_F(RecorderTest, APageIsToldTheSameTimesEachTime) {
    page(timedPage);
    settings_.hand = Hand::mouse;
    settings_.fps = 60;
    steps({stepOn(Interaction::tap, "go")});
    expectTheSameAgain();
    int last = 0;
    eachFrame([&](const imaging::Bitmap& frame) { last = green(frame, 340, 620); });
    EXPECT_GT(last, 230) << "some time was none of a frame";
}

TEST_F(RecorderTest, TheSidecarSaysWhatThePictureShows) {
    page(
        R"(<div style='height:900px'></div><button id=box style='margin-left:200px;width:80px;height:50px;border:0;
        background:#00ff00'></button><div style='height:900px'></div>
        <script>box.onclick = () => box.animate([{background: '#00ff00'}, {background: '#0000ff'}],
            {duration: 500, fill: 'forwards'})</script>)");
    steps({stepOn(Interaction::tap, "box")});
    settings_.flow.steps[0].dwellBeforeMs = 200;
    settings_.flow.steps[0].dwellAfterMs = 300;
    settings_.hasMarks = true;
    const Recording recording = recorded();
    const Timeline::Event& event = recording.timeline.events.at(0);
    ASSERT_TRUE(event.regionPx && event.actionSec && event.endSec);
    EXPECT_EQ(event.regionPx->width, 80);
    EXPECT_EQ(event.regionPx->height, 50);
    // The marks in the picture stand where the sidecar says.
    const VideoProbe probe = SyncFrameDetector::probe(settings_.video);
    EXPECT_EQ(probe.syncSeconds, 0);
    ASSERT_TRUE(probe.endFlashStartSeconds);
    ASSERT_EQ(probe.markBlipSeconds.size(), 2u);
    EXPECT_NEAR(probe.markBlipSeconds[0], *event.actionSec, 0.002);
    EXPECT_NEAR(probe.markBlipSeconds[1], *event.endSec, 0.002);
    const auto aligned = PixelMarkAlignment::align(
        recording.timeline, probe.markBlipSeconds, PixelMarkAlignment::usualTolerance);
    EXPECT_EQ(aligned.matched, 2u);
    // The button is green until it is tapped, ends blue, and does not change after the end of its motion.
    const int x = static_cast<int>(event.regionPx->x) + 4, y = static_cast<int>(event.regionPx->y) + 4;
    std::vector<int> greens;
    eachFrame([&](const imaging::Bitmap& frame) { greens.push_back(green(frame, x, y)); });
    const auto at = [&](double sec) {
        return greens.at(static_cast<std::size_t>(std::lround(sec * settings_.fps)));
    };
    EXPECT_GT(at(*event.actionSec - 1.0 / settings_.fps), 230);
    EXPECT_LT(at(*event.endSec), 25);
    EXPECT_GT(at(*event.endSec - 3.0 / settings_.fps), at(*event.endSec))
        << "it still moved shortly before its end";
}

TEST_F(RecorderTest, HandsDoWhatTheFlowSays) {
    page(R"(<input id=field style='width:300px;height:40px'><div id=list style='height:200px;overflow:auto'>
        <div style='height:2000px;background:linear-gradient(#fff,#000)'></div></div>
        <div id=row style='height:80px;background:#ccc'></div><a id=link href='#next' style='display:block;height:50px'>x</a>
        <script>
        const log = []; document.title = '';
        const note = text => { log.push(text); localStorage.log = log.join(' ') };
        field.onchange = field.oninput = () => 0;
        let from; row.ontouchstart = e => from = e.touches[0].clientX;
        row.ontouchend = e => note('swiped' + (e.changedTouches[0].clientX - from < -100 ? 'left' : 'elsewhere'));
        list.oncontextmenu = e => { e.preventDefault(); note('held') };
        onhashchange = () => note('at' + location.hash);
        addEventListener('tavix:state', e => note('state:' + e.detail.description));
        window.onpagehide = 0;
        setInterval(() => document.body.style.background =
            field.value === 'Grüße, 日本!' && log.join(' ') === 'state:ready swipedleft held at#next at'
            && list.scrollTop === 300 && tavix.isDriven ? '#0f0' : '#f00', 50);
        </script><style>body{background:#f00}</style>)");
    Step text = stepOn(Interaction::textEntry, "field"), scroll = stepOn(Interaction::scroll, "list");
    text.target.textValue = "Grüße, 日本!";
    text.state = MockState{.viewModelType = {}, .description = "ready", .payload = {}};
    scroll.distance = 300;
    Step swipe = stepOn(Interaction::swipe, "row"), hold = stepOn(Interaction::longPress, "list");
    swipe.direction = SwipeDirection::left;
    Step back = stepOn(Interaction::navPop, "");
    steps({text, scroll, swipe, hold, stepOn(Interaction::navPush, "link"), back});
    const Recording recording = recorded();
    int last = 0;
    eachFrame([&](const imaging::Bitmap& frame) { last = green(frame, 180, 600); });
    EXPECT_GT(last, 200) << "the page saw something else";
}

// The browser, but that it swallows the 40th frame and those after it the first `times` times that it runs.
std::filesystem::path stalling(
    const std::filesystem::path& browser, const std::filesystem::path& folder, int times) {
    std::ofstream(folder / "left") << times << "\n";
    const auto program = folder / "browser";
    std::ofstream(program)
        << "#!/bin/bash\nleft=$(cat '" << (folder / "left").string() << "')\n[ $left -gt 0 ] || exec "
        << browser.string() << " \"$@\"\necho $((left - 1)) >'" << (folder / "left").string() << "'\nexec "
        << browser.string()
        << R"( "$@" 3< <(exec sed -zu '/HeadlessExperimental.beginFrame/{x;s/^/x/;/x\{40\}/{x;d};x}' <&3))"
        << "\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    return program;
}

TEST_F(RecorderTest, ABrowserThatStandsStillCostsTimeAndNoFilm) {
    page("<style>body{animation:b 1s infinite}@keyframes b{to{background:#00f}}</style><p id=p>x</p>");
    steps({stepOn(Interaction::tap, "p")});
    const Recording whole = recorded();
    const auto pictures = frames();
    const auto browser = settings_.browser;
    const testsupport::TemporaryFolder beside;
    settings_.drawingBoundSec = 2;
    settings_.browser = stalling(browser, beside.path(), 1);
    const Recording again = recorded();
    EXPECT_EQ(again.timeline, whole.timeline);
    EXPECT_EQ(frames(), pictures);
    EXPECT_THAT(again.notes, Contains("The browser stood still, so the recording was begun 2 times."));
    settings_.browser = stalling(browser, beside.path(), 1000);
    EXPECT_THAT(failure(), AllOf(HasSubstr("did not draw a frame within 2 seconds"), HasSubstr("3 times")));
}

TEST_F(RecorderTest, WhatCannotBeDoneIsToldWithThePage) {
    page(R"(<button id=save aria-label='Save the note'>Save</button><button id=off disabled>Off</button>
        <p id=words>plain</p><div style='position:relative;height:50px'><button id=under>Under</button>
        <div class='veil' style='position:absolute;inset:0'></div></div><p id=gone hidden>gone</p>)");
    settings_.patienceSec = 0.2;
    Target byName{
        .kind = Target::Kind::accessibilityId, .identifier = "Save a note", .label = {}, .textValue = {}};
    Step named = stepOn(Interaction::tap, "");
    named.target = byName;
    const struct {
        Step step;
        const char *first, *second;
    } cases[] = {
        {named, "There was no accessibilityId \"Save a note\" within", "\"button:Save the note\""},
        {stepOn(Interaction::tap, "off"), "viewId \"off\" is <button#off>, which was disabled", ""},
        {stepOn(Interaction::tap, "gone"), "viewId \"gone\" is <p#gone>, which was not to be seen", ""},
        {stepOn(Interaction::tap, "under"), "viewId \"under\" is covered by <div.veil>.", ""},
        {stepOn(Interaction::textEntry, "words"), "viewId \"words\" takes no text", ""},
        {stepOn(Interaction::scroll, "words"), "viewId \"words\" does not scroll down", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.first);
        steps({stepOn(Interaction::tap, "save"), c.step});
        try {
            recorded();
            ADD_FAILURE() << "it was done";
        } catch (const StepFailure& failure) {
            EXPECT_EQ(failure.position(), 1u);
            EXPECT_THAT(failure.message(), AllOf(HasSubstr(c.first), HasSubstr(c.second)));
            EXPECT_TRUE(failure.picturePng().starts_with("\x89PNG"));
        }
    }
}

TEST_F(RecorderTest, APageReachesNothingElse) {
    const testing::SlowServer other(0, [](const std::string&) { return "reached"; });
    page(R"(<button id=go style='height:60px'>Go</button><iframe src='file:///etc/passwd'></iframe>
        <img src='OTHER/p.gif'><link rel=preconnect href='OTHER'><script>
        fetch('OTHER/x', {mode: 'no-cors'}).catch(() => 0);
        fetch('file:///etc/passwd').catch(() => 0);
        new WebSocket('OTHER/'.replace('http', 'ws'));
        new Worker(URL.createObjectURL(new Blob([`fetch('OTHER/w', {mode: 'no-cors'})`])));
        new EventSource('OTHER/e');
        navigator.sendBeacon('OTHER/b', 'x');
        open('OTHER/popup');
        go.onclick = () => location = 'OTHER/next';
        </script>)",
        other.origin());
    steps({stepOn(Interaction::tap, "go")});
    settings_.flow.steps[0].dwellAfterMs = 300;
    EXPECT_THAT(recorded().notes, Contains(HasSubstr("--allow " + other.origin() + " lets it.")));
    EXPECT_EQ(other.visitors(), 0);
    settings_.allowed = {other.origin()};
    recorded();
    EXPECT_GT(other.visitors(), 0) << "and nobody could have come anyway";
}

TEST_F(RecorderTest, ASlowServerTakesNoneOfTheFilmsTime) {
    const auto answer = [](const std::string& path) -> std::string {
        if (path == "/data") return "0, 255, 0";
        return "<!doctype html><button id=go style='height:60px'>Go</button><script>go.onclick = async () => "
               "document.body.style.background = `rgb(${await (await fetch('/data')).text()})`</script>";
    };
    std::vector<Timeline> timelines;
    std::vector<std::string> films;
    for (const double delaySec : {0.0, 0.4}) {
        const testing::SlowServer server(delaySec, answer);
        settings_.address = server.origin() + "/";
        steps({stepOn(Interaction::tap, "go")});
        timelines.push_back(recorded().timeline);
        films.push_back(readBytes(settings_.video));
    }
    EXPECT_EQ(timelines[0], timelines[1]);
    EXPECT_TRUE(films[0] == films[1]);
    int last = 0;
    eachFrame([&](const imaging::Bitmap& frame) { last = green(frame, 300, 600); });
    EXPECT_GT(last, 230) << "the answer was waited for";
}

TEST_F(RecorderTest, AddressesThatAreNoPagesAreRefused) {
    page("<button id=go>Go</button>");
    steps({stepOn(Interaction::tap, "go")});
    for (const char* address :
        {"file:///etc/passwd", "chrome://version", "data:text/html,x", "/no/such/page"}) {
        settings_.address = address;
        EXPECT_THAT(failure(), HasSubstr("record")) << address;
    }
    settings_.address = "http://127.0.0.1:9/";   // nobody listens to what is thrown away
    EXPECT_THAT(failure(), HasSubstr("cannot be opened"));
}

}   // namespace

}   // namespace tavix::recorder
