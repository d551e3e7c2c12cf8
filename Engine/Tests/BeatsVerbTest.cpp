#include "Engine/Tests/EngineTest.h"

#include "TavixCore/Values/SeededRandom.h"

#include <gmock/gmock.h>

#include <cmath>

namespace tavix::engine::testing {

namespace {

using ::testing::HasSubstr;

constexpr int rateHz = 22050;

// A WAV file of 16 bits and one channel.
std::string wav(const std::vector<std::int16_t>& samples) {
    const auto number = [](std::uint32_t value, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i));
        return text;
    };
    const auto size = static_cast<std::uint32_t>(samples.size() * 2);
    std::string file = "RIFF" + number(36 + size, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) +
                       number(1, 2) + number(rateHz, 4) + number(rateHz * 2, 4) + number(2, 2) +
                       number(16, 2) + "data" + number(size, 4);
    for (const std::int16_t sample : samples) file += number(static_cast<std::uint16_t>(sample), 2);
    return file;
}

// Bursts of noise at 120 beats a minute.
std::string drums(double durationSec) {
    SeededRandom random(5);
    std::vector<std::int16_t> samples(static_cast<std::size_t>(durationSec * rateHz));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double sec = static_cast<double>(i) / rateHz - 0.2;
        if (sec < 0) continue;
        samples[i] =
            static_cast<std::int16_t>(random.next(-12000, 12000) * std::exp(-std::fmod(sec, 0.5) / 0.05));
    }
    return wav(samples);
}

class BeatsVerb : public EngineTest {
protected:
    BeatsVerb() { write("song.wav", drums(8)); }
};

TEST_F(BeatsVerb, TellsTheTempoAndWhatADocumentSaysOfIt) {
    const Outcome heard = tavix({"beats", "song.wav"});
    EXPECT_EQ(heard.status, 0);
    EXPECT_THAT(heard.out, HasSubstr("\"music\": {\"path\": \"song.wav\", \"bpm\": 1"));
    const Json found = json({"beats", "song.wav", "--json"});
    EXPECT_NEAR(found.find("bpm")->doubleValue().value(), 120, 0.5);
    EXPECT_NEAR(found.find("firstBeatSec")->doubleValue().value(), 0.2, 0.015);
    EXPECT_THAT(names(), ::testing::Not(::testing::Contains("song.beats.json")));
}

TEST_F(BeatsVerb, WritesWhatItPrints) {
    const Json found = json({"beats", "song.wav", "--json", "--write"});
    EXPECT_EQ(parseJson(readBytes(at("song.beats.json"))), found);
}

TEST_F(BeatsVerb, SaysWhenThereIsNoBeat) {
    write("short.wav", drums(2));
    write("silence.wav", wav(std::vector<std::int16_t>(5 * rateHz)));
    write("words.mp3", "These are only words.");
    write("empty.wav", "");
    const struct {
        std::string file;
        int status;
        const char* sentence;
    } cases[] = {
        {"short.wav", 0, "No beat was found in \"short.wav\": it is only 2.0 s long, and a beat needs 3 s."},
        {"silence.wav", 0, "No beat was found in \"silence.wav\": nothing in it repeats."},
        {"tiny.json", 3, "Could not decode tiny.json: "},
        {"words.mp3", 3, "Could not decode words.mp3: "},
        {"empty.wav", 3, "Could not decode empty.wav: "},
        {"gone.wav", 3, "Could not decode gone.wav: "},
    };
    for (const auto& c : cases) {
        const Outcome outcome = tavix({"beats", c.file, "--write"});
        EXPECT_EQ(outcome.status, c.status) << c.file;
        EXPECT_THAT(outcome.err, HasSubstr(c.sentence));
    }
    EXPECT_THAT(names(), ::testing::Not(::testing::Contains(::testing::EndsWith(".beats.json"))));
}

}   // namespace

}   // namespace tavix::engine::testing
