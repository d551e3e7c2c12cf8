// Documents that mean harm, or are far beyond any film: told in a finished sentence, and soon.
#include "Engine/Tests/EngineTest.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string_view>

namespace tavix::engine::testing {

namespace {

using ::testing::AnyOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class HostileDocument : public EngineTest {
protected:
    static std::string with(const std::string& layer) {
        return R"({"output": {"widthPx": 64, "heightPx": 96, "fps": 10}, "scenes": [{"durationSec": 0.2, "layers": [)" +
               layer + "]}]}";
    }
    static std::string repeated(const std::string& one, int count) {
        std::string all = one;
        for (int i = 1; i < count; ++i) all += ", " + one;
        return all;
    }
};

bool isControl(unsigned char c) { return (c < 0x20 && c != '\n' && c != '\t') || c == 0x7F; }

TEST_F(HostileDocument, NothingThatSteersATerminalReachesIt) {
    // An escape sequence, NUL, a bell, DEL, and CSI as one character (U+009B).
    const std::string evil = R"(a\u001b[31m\u0000\u0007\u007f\u009b2Jz)";
    const std::string documents[] = {
        R"({"scenes": [{"id": ")" + evil + R"(", "durationSec": -1}, {"id": ")" + evil + R"("}]})",
        with(R"({"kind": ")" + evil + R"("})"),
        with(R"({"kind": "image", "image": {"path": ")" + evil + R"("}})"),
        with(R"({"kind": "video", "video": {"path": ")" + evil + R"("}, "effects": [{"kind": ")" + evil +
             R"("}]})"),
        R"({")" + evil + R"(": 1, "output": {"fps": ")" + evil + R"("}})",
    };
    for (const std::string& document : documents) {
        SCOPED_TRACE(document);
        write("evil.json", document);
        for (const std::vector<std::string>& words : {std::vector<std::string>{"lint", "evil.json"},
                 {"render", "evil.json"}, {"resolve", "evil.json"}, {"lint", "evil.json", "--json"},
                 {"pack", "evil.json", "-o", "out"}, {"still", "evil.json", "--scene", "none"}}) {
            const Outcome outcome = tavix(words);
            for (const std::string& said : {outcome.out, outcome.err}) {
                EXPECT_TRUE(std::ranges::none_of(said, isControl)) << words.front();
                EXPECT_EQ(said.find("\xC2\x9B"), std::string::npos) << words.front();
                EXPECT_THAT(said, AnyOf(IsEmpty(), EndsWith("\n"))) << words.front();
            }
            EXPECT_THAT(outcome.err, AnyOf(IsEmpty(), EndsWith(".\n"))) << words.front();
        }
    }
}

TEST_F(HostileDocument, HoldsNoMoreThanALayerCanShow) {
    const std::string text = R"({"kind": "text", "text": {"text": ")";
    const struct {
        std::string layer, sentence;
    } cases[] = {
        {R"({"kind": "shape", "effects": [)" + repeated(R"({"kind": "glow"})", 5000) + "]}",
            "scenes[0].layers[0].effects: 5000 effects are too many for one layer; use at most 32, or "
            "several layers.\n"},
        {R"({"kind": "shape", "effects": [)" + repeated(R"({"kind": "chromaticAberration"})", 5) + "]}",
            "scenes[0].layers[0].effects: 5 effects chromaticAberration are too many for one layer; use at "
            "most 4, "
            "or several layers.\n"},
        {text + std::string(3'000'000, 'w') + R"("}})", "scenes[0].layers[0].text.text: 3000000 characters "
                                                        "are too many for one layer; use at most 20000, or "
                                                        "several layers.\n"},
    };
    for (const auto& c : cases) {
        write("large.json", with(c.layer));
        for (const char* verb : {"render", "resolve", "lint", "pack"}) {
            const Outcome outcome = tavix({verb, "large.json"});
            EXPECT_EQ(outcome.status, 1) << verb;
            EXPECT_THAT(outcome.err + outcome.out, HasSubstr(c.sentence)) << verb;
        }
    }
}

TEST_F(HostileDocument, HoldsAsMuchAsItMay) {
    write("full.json",
        with(R"({"kind": "shape", "shape": {}, "effects": [)" +
             repeated(R"({"kind": "chromaticAberration"})", 4) + ", " + repeated(R"({"kind": "glow"})", 14) +
             ", " + repeated(R"({"kind": "tint"})", 14) + R"(]}, {"kind": "text", "text": {"text": ")" +
             std::string(20'000, 'w') + R"("}})"));
    EXPECT_EQ(tavix({"render", "full.json"}).status, 0);
}

// Numbers that no integer holds, wherever a layer has one.
TEST_F(HostileDocument, TakesEveryNumberThatJsonCanWrite) {
    const std::string layers[] = {
        R"({"kind": "shape", "position": {"x": N, "y": N}, "shape": {"shape": "roundedRect", "widthFraction": N,
            "heightFraction": N, "cornerRadiusFraction": N, "strokeWidthFraction": N}})",
        R"({"kind": "shape", "shape": {}, "opacity": N, "tracks": [{"property": "scale", "keyframes": [{"t": N,
            "value": N}, {"t": 0, "value": N}]}, {"property": "rotationDeg", "keyframes": [{"t": 0, "value": N}]},
            {"property": "blur", "keyframes": [{"t": 0, "value": N}]}, {"property": "x", "keyframes": [{"t": 0,
            "value": N}]}]})",
        R"({"kind": "text", "position": {"x": N, "y": N}, "text": {"text": "Wolf", "sizeFraction": N,
            "maxWidthFraction": N, "trackingEm": N, "color": {"r": N, "g": N, "b": N, "a": N}}})",
        R"({"kind": "image", "image": {"path": "dot.png", "heightFraction": N, "cornerRadiusFraction": N,
            "sourceRect": {"x": N, "y": N, "width": N, "height": N}}, "fromSec": N, "durationSec": N})",
        R"({"kind": "fill", "fill": {"kind": "gradient", "gradient": {"angleDegrees": N, "stops": [{"location": N,
            "color": {"r": N, "g": N, "b": N, "a": N}}]}}, "effects": [{"kind": "blur", "radiusFraction": N},
            {"kind": "noise", "amount": N}, {"kind": "pixelate", "scaleFraction": N}]})",
        R"({"kind": "device", "device": {"screen": {"kind": "still", "path": "dot.png"}}, "position": {"x": N,
            "y": N}, "enter": {"durationSec": N, "scale": N, "offset": {"x": N, "y": N}, "blurRadiusFraction": N}})",
    };
    tavix({"still", "tiny.json", "--at", "0", "-o", "dot.png"});
    for (const std::string& layer : layers)
        for (const std::string number : {"1e308", "-1e308", "1e-308", "0", "-0.0", "1e19"}) {
            std::string document = with(layer);
            for (auto at = document.find('N'); at != std::string::npos;
                 at = document.find('N', at + number.size()))
                document.replace(at, 1, number);
            SCOPED_TRACE(document);
            write("numbers.json", document);
            const Outcome outcome = tavix({"render", "numbers.json", "-o", "numbers.mp4"});
            EXPECT_THAT(outcome.status, AnyOf(0, 1)) << outcome.err;
            EXPECT_THAT(outcome.err, AnyOf(IsEmpty(), EndsWith(".\n")));
        }
}

TEST_F(HostileDocument, IsNoOutputOfItself) {
    tavix({"still", "tiny.json", "--at", "0", "-o", "film.tavixcomp/assets/dot.png"});
    write(
        "film.tavixcomp/composition.json", with(R"({"kind": "image", "image": {"path": "assets/dot.png"}})"));
    const std::string before = readBytes(at("film.tavixcomp/assets/dot.png"));
    std::filesystem::create_symlink("film.tavixcomp/assets/dot.png", at("alias.png"));
    for (const char* output :
        {"film.tavixcomp/assets/dot.png", "film.tavixcomp/../film.tavixcomp/assets/dot.png", "alias.png"})
        for (const char* verb : {"still", "sheet"}) {
            std::vector<std::string> words{verb, "film.tavixcomp", "-o", output};
            if (words.front() == "still") words.insert(words.end(), {"--at", "0"});
            const Outcome outcome = tavix(words);
            EXPECT_EQ(outcome.status, 2) << output;
            EXPECT_THAT(outcome.err, HasSubstr("is used by the document itself and would be lost"));
        }
    EXPECT_EQ(readBytes(at("film.tavixcomp/assets/dot.png")), before);
}

}   // namespace

}   // namespace tavix::engine::testing
