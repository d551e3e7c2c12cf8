// The clock of recordings: every frame once, the same each time, whatever the machine does meanwhile.
#include "TavixRecorder/Tests/RecorderTestKit.h"

#include "TavixCore/Support/Document.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixRecorder/Tests/SlowServer.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>

namespace tavix::recorder {

namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::HasSubstr;

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

}   // namespace

}   // namespace tavix::recorder
