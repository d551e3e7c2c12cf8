// Captions and cuts, there and back.
#include "TavixAgent/Exchange/CaptionLayers.h"
#include "TavixAgent/Exchange/OpenTimeline.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Encoding/FilmWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tavix {

std::ostream& operator<<(std::ostream& out, const SubtitleCue& cue) {
    return out << cue.fromSec << " to " << cue.toSec << ": " << cue.text;
}

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* words[] = {"Hello", "3 < 4 & 5 > 2", "&amp;", "<b", "Grüße", "日本語", "2026",
    "a --> b", "{curly}", "\"quoted\"", "I <3 it", "10:30", "—", "👩‍👩‍👧"};

// Whole milliseconds, one after the other or with gaps, within the length.
std::vector<SubtitleCue> randomCues(std::mt19937& random, int lengthMs) {
    const auto upTo = [&](int most) { return int(random() % unsigned(most + 1)); };
    std::vector<SubtitleCue> cues;
    for (int at = upTo(2000); at + 100 < lengthMs;) {
        const int end = std::min(at + 80 + upTo(4000), lengthMs);
        std::string text;
        for (int lines = 1 + upTo(1); lines > 0; --lines) {
            if (!text.empty()) text += '\n';
            for (int count = 1 + upTo(3); count > 0; --count)
                text += std::string(text.empty() || text.ends_with('\n') ? "" : " ") +
                        words[random() % std::size(words)];
        }
        cues.push_back({at / 1000.0, end / 1000.0, text});
        at = end + (upTo(2) == 0 ? 0 : upTo(1500));
    }
    return cues;
}

CompositionSpec randomFilm(std::mt19937& random, Json& written) {
    const auto upTo = [&](int most) { return int(random() % unsigned(most + 1)); };
    JsonArray scenes;
    for (int count = 1 + upTo(5); count > 0; --count) {
        JsonObject scene{{"durationSec", 1.5 + upTo(40) / 10.0}};
        if (upTo(1) == 0)
            scene.set("layers",
                JsonArray{JsonObject{{"kind", "shape"}, {"shape", JsonObject{{"shape", "ellipse"}}}}});
        if (upTo(1) == 0)
            scene.set("transition", JsonObject{{"style", upTo(1) == 0 ? "fade" : "push"},
                                        {"durationSec", 0.1 + upTo(60) / 100.0}});
        scenes.emplace_back(std::move(scene));
    }
    written = JsonObject{{"output", JsonObject{{"widthPx", 640}, {"heightPx", 360},
                                        {"fps", upTo(1) == 0 ? Json(30) : Json("30000/1001")}}},
        {"scenes", std::move(scenes)}};
    return decodeValue<CompositionSpec>(written);
}

TEST(Subtitles, ComeBackAsTheyWereWritten) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::mt19937 random(seed);
        const auto cues = randomCues(random, 60'000);
        if (cues.empty()) continue;
        for (const auto form : {SubtitleForm::srt, SubtitleForm::vtt}) {
            const std::string file = writeSubtitles(cues, form);
            SCOPED_TRACE(file);
            const SubtitleReading reading = readSubtitles(file);
            EXPECT_EQ(reading.cues, cues);
            EXPECT_THAT(reading.notes, IsEmpty());
        }
    }
}

TEST(Subtitles, AreReadAsPlayersReadThem) {
    const struct {
        const char* file;
        std::vector<SubtitleCue> cues;
        const char* note;   // in one of the notes; none where it is null
    } cases[] = {
        {"\xEF\xBB\xBF"
         "1\r\n00:00:01,000 --> 00:00:02,500\r\nHi\r\nyou\r\n",
            {{1, 2.5, "Hi\nyou"}}, nullptr},
        {"00:01.5 --> 00:02.25 \nno number, no hours", {{1.5, 2.25, "no number, no hours"}}, nullptr},
        {"1\n0:0:1,0 --> 1:00:00,000 X1:40 X2:600\n<font color=\"#fff\">Hi</font> {\\an8}<i>there</i>\n",
            {{1, 3600, "Hi there"}}, "1 place had styles"},
        {"1\n00:00:05,000 --> 00:00:06,000\nlate\n2\n00:00:01,000 --> 00:00:02,000\nearly, and no empty line",
            {{1, 2, "early, and no empty line"}, {5, 6, "late"}}, nullptr},
        {"WEBVTT - a title\nKind: captions\n\nSTYLE\n::cue { color: red }\n\nNOTE\nmine\n\nintro\n00:01.000 --> "
         "00:02.000 line:0\n<v Ann>A &lt; B<00:01.500> &amp; C\n",
            {{1, 2, "A < B & C"}}, "2 places of notes"},
        {"1\n00:00:03,000 --> 00:00:02,000\nbackwards\n\n2\n00:00:03,000 --> 00:00:04,000\n\n3\n00:00:05,000 --> "
         "00:00:06,000\nfine\n",
            {{5, 6, "fine"}}, "Line 2 ends when it begins"},
        {"scribble\nmore\n\n00:00:05,000 --> 00:00:06,000\nfine\n", {{5, 6, "fine"}},
            "Line 1 begins no caption"},
        {"1\n00:00:05,000 --> 00:00:06,000\ncaf\xE9\n", {{5, 6, "café"}}, "Latin-1"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.file);
        const SubtitleReading reading = readSubtitles(each.file);
        EXPECT_EQ(reading.cues, each.cues);
        std::string notes;
        for (const Finding& note : reading.notes) notes += note.message + "\n";
        if (each.note)
            EXPECT_THAT(notes, HasSubstr(each.note));
        else
            EXPECT_EQ(notes, "");
    }
    for (const char* none : {"", "WEBVTT\n\n", "1\n2\n3\n", "\xFF\xFEh\0i\0", "{\"json\": true}"})
        EXPECT_THROW(readSubtitles(none), Failure) << none;
}

TEST(Captions, ComeBackFromTheLayersOfAFilm) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        Json written;
        const CompositionSpec film = randomFilm(random, written);
        const int lengthMs = int(CompositionTimeline(film).totalSec * 1000);
        const auto cues = randomCues(random, lengthMs);
        const CaptionImport taken = captionLayers(cues, film, written);
        EXPECT_THAT(taken.notes, IsEmpty());
        const Json after = applyPatch(taken.patch, written);
        const std::string file =
            writeSubtitles(captionsOf(decodeValue<CompositionSpec>(after)), SubtitleForm::srt);
        EXPECT_EQ(file, writeSubtitles(cues, SubtitleForm::srt));
        // Again, it takes the place of the first; and what was there before stays.
        EXPECT_EQ(
            applyPatch(captionLayers(cues, decodeValue<CompositionSpec>(after), after).patch, after), after);
        if (cues.empty()) continue;
        const Json cleared = applyPatch(captionLayers({}, film, after).patch, after);
        EXPECT_THAT(captionsOf(decodeValue<CompositionSpec>(cleared)), IsEmpty());
        EXPECT_EQ(cleared.find("scenes")->array()->size(), written.find("scenes")->array()->size());
    }
}

TEST(Captions, TellWhatTheFilmHasNoRoomFor) {
    const Json written = parseJson(R"({"scenes": [{"durationSec": 4}]})");
    const std::vector<SubtitleCue> cues{{1, 3, "a"}, {2, 9, "b"}, {7, 8, "c"}};
    const CaptionImport taken = captionLayers(cues, decodeValue<CompositionSpec>(written), written);
    std::vector<std::string> notes;
    for (const Finding& note : taken.notes) notes.push_back(note.message);
    EXPECT_THAT(
        notes, ElementsAre(HasSubstr("Caption 2 is cut off at the end of the film, which ends at 4.00 s."),
                   HasSubstr("Captions 1 and 2 are seen at once"),
                   HasSubstr("Caption 3 comes after the film"), HasSubstr("Captions 2 and 3")));
    const auto after = decodeValue<CompositionSpec>(applyPatch(taken.patch, written));
    EXPECT_EQ(captionsOf(after), (std::vector<SubtitleCue>{{1, 3, "a"}, {2, 4, "b"}}));
}

double framesOf(const Json& time) { return *time.find("value")->doubleValue(); }

TEST(OpenTimeline, CutsAddUpToTheFilmAndStayWithinTheirScenes) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        Json written;
        const CompositionSpec film = randomFilm(random, written);
        const CompositionTimeline timeline(film);
        const OpenTimeline made = openTimeline(film, "film", "/films");
        const JsonArray& scenes =
            *find(made.json, JsonPointer::parse("/tracks/children/0/children"))->array();
        double total = 0;
        std::size_t clips = 0;
        for (const Json& child : scenes) {
            if (child.find("OTIO_SCHEMA")->stringValue() == "Transition.1") {
                const double overlap =
                    framesOf(*child.find("in_offset")) + framesOf(*child.find("out_offset"));
                const double expected = timeline.transitionDurations[clips - 1] * double(film.output.fps);
                EXPECT_NEAR(overlap, expected, 1.01);
                continue;
            }
            const Json& range = *child.find("source_range");
            const double from = framesOf(*range.find("start_time")),
                         length = framesOf(*range.find("duration"));
            // What the transition shows of the scene before its cut is there.
            EXPECT_GE(from, 0);
            EXPECT_NEAR(from,
                clips == 0 ? 0 : timeline.transitionDurations[clips - 1] * double(film.output.fps) / 2, 1.51);
            const Json& available = *find(child, JsonPointer::parse("/media_reference/available_range"));
            EXPECT_LE(from + length, framesOf(*available.find("duration")));
            total += length;
            ++clips;
        }
        EXPECT_EQ(clips, film.scenes.size());
        EXPECT_EQ(total, double(FilmWriter::frameCount(timeline.totalSec, film.output.fps)));
    }
}

TEST(OpenTimeline, CarriesClipsMusicAndMarkersAndTellsWhatItLeaves) {
    const auto film = decodeValue<CompositionSpec>(parseJson(R"({
        "output": {"fps": 25},
        "audio": {"music": {"path": "a b/söng.mp3", "startAtSec": 2}, "cues": [{"atSec": 1, "sound": "ding"}]},
        "scenes": [
            {"id": "one", "durationSec": 2, "transition": {"style": "push", "durationSec": 0.4}, "layers": [
                {"kind": "video", "fromSec": 0.4, "video": {"path": "c.mov", "trimStartSec": 1, "trimEndSec": 2}},
                {"kind": "video", "id": "inset", "fromSec": 1, "video": {"path": "d.mov"}},
                {"kind": "text", "fromSec": 0.2, "durationSec": 1, "text": {"text": "Hello"}},
                {"kind": "shape", "shape": {"shape": "ellipse"}, "effects": [{"kind": "glow"}]}]},
            {"id": "two", "durationSec": 2}]})"));
    const OpenTimeline made = openTimeline(film, "film", "/films");
    const auto at = [&](const std::string& pointer) { return find(made.json, JsonPointer::parse(pointer)); };
    const auto frames = [&](const std::string& pointer) { return framesOf(*at(pointer)); };
    EXPECT_EQ(at("/tracks/children/0/children/1/transition_type")->stringValue(), "Custom_Transition");
    EXPECT_EQ(at("/tracks/children/0/children/0/markers/0/name")->stringValue(), "Hello");
    EXPECT_EQ(frames("/tracks/children/0/children/0/markers/0/marked_range/start_time"), 5);
    // The clip from its second 1, after a gap of ten frames; the inset overlaps it and has a track of its
    // own.
    EXPECT_EQ(frames("/tracks/children/1/children/0/source_range/duration"), 10);
    EXPECT_EQ(frames("/tracks/children/1/children/1/source_range/start_time"), 25);
    EXPECT_EQ(frames("/tracks/children/1/children/1/source_range/duration"), 25);
    EXPECT_EQ(at("/tracks/children/2/children/1/name")->stringValue(), "inset");
    EXPECT_EQ(frames("/tracks/children/3/children/0/source_range/start_time"), 50);
    EXPECT_EQ(frames("/tracks/children/3/children/0/source_range/duration"), 90);
    EXPECT_EQ(at("/tracks/children/3/children/0/media_reference/target_url")->stringValue(),
        "file:///films/a%20b/s%C3%B6ng.mp3");
    EXPECT_EQ(frames("/tracks/markers/0/marked_range/start_time"), 25);
    std::string notes;
    for (const Finding& note : made.notes) notes += note.message + "\n";
    EXPECT_THAT(notes, HasSubstr("(1 shape)"));
    EXPECT_THAT(notes, HasSubstr("effects of 1 layers"));
    EXPECT_THAT(notes, HasSubstr("Of 1 transitions"));
    EXPECT_THAT(notes, HasSubstr("fades of the music"));
}

}   // namespace
}   // namespace tavix
