#include "TavixAgent/Document/ReadingFaults.h"
#include "TavixCore/Support/Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavix {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::vector<std::string> pathsOf(const char* document) {
    std::vector<std::string> paths;
    for (const Finding& fault : readingFaults(parseJson(document))) {
        paths.push_back(fault.path);
        // Where the sentence names its place, it is the same.
        if (fault.message.starts_with('"') && !fault.path.empty()) {
            EXPECT_THAT(fault.message, HasSubstr(fault.path));
        }
    }
    return paths;
}

TEST(ReadingFaults, AreToldAllAtOnce) {
    EXPECT_THAT(pathsOf(R"({"scenes": [{"durationSec": 1}]})"), ElementsAre());
    EXPECT_THAT(pathsOf(R"({"output": {"fps": [], "widthPx": "wide"}, "scenes": [
            {"durationSec": "two", "id": 7},
            {"durationSec": 1, "layers": [{"kind": "txt"}, {"kind": "text", "opacity": "half"}, {"kind": "text",
                "position": 7}]},
            {"durationSec": 1, "layers": [{"kind": "text", "text": {"text": 5}}]}]})"),
        ::testing::UnorderedElementsAre("output.fps", "output.widthPx", "scenes[0].durationSec",
            "scenes[0].id", "scenes[1].layers[0].kind", "scenes[1].layers[1].opacity",
            "scenes[1].layers[2].position", "scenes[2].layers[0].text.text"));
}

TEST(ReadingFaults, KeepTheirPlaceWhereOthersAreLeftOut) {
    EXPECT_THAT(
        pathsOf(R"({"scenes": [7, {"durationSec": 1, "layers": [true, null, {"kind": "text", "id": 1}]},
            "x", {"durationSec": []}]})"),
        ::testing::UnorderedElementsAre("scenes[0]", "scenes[1].layers[0]", "scenes[1].layers[1]",
            "scenes[1].layers[2].id", "scenes[2]", "scenes[3].durationSec"));
}

TEST(ReadingFaults, AreBounded) {
    std::string scenes;
    for (int i = 0; i < 300; ++i) scenes += std::string(i ? "," : "") + R"({"durationSec": "x"})";
    EXPECT_EQ(pathsOf(("{\"scenes\": [" + scenes + "]}").c_str()).size(), 20u);
    for (const char* whole : {"7", "[]", "null", "\"x\"", R"({"scenes": 7})"})
        EXPECT_EQ(pathsOf(whole).size(), 1u) << whole;
}

}   // namespace
}   // namespace tavix
