// What the hands do to a page, and what the film and its sidecar tell of it.
#include "TavixRecorder/Tests/RecorderTestKit.h"

#include "TavixRecorder/Tests/SlowServer.h"
#include "TavixReel/Recording/PixelMarkAlignment.h"
#include "TavixRender/Recording/SyncFrameDetector.h"

#include <gmock/gmock.h>

#include <cmath>
#include <string>

namespace tavix::recorder {

namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::HasSubstr;

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
