#include "TavixCore/Timeline/Timeline.h"

#include "TavixCore/Support/Document.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(Timeline, KeepsWhatItDoesNotKnowAndWritesNoNull) {
    const std::string text = R"({
  "events" : [
    {
      "index" : 7,
      "tSec" : 1.25,
      "type" : "shake"
    }
  ],
  "video" : {
    "fps" : 60,
    "heightPx" : 2,
    "widthPx" : 1
  }
})";
    const auto timeline = decodeJson<Timeline>(text);
    EXPECT_EQ(timeline.events.at(0).type, "shake");
    EXPECT_EQ(parseJson(encodedJson(timeline)), parseJson(text));
}

TEST(Timeline, NeedsItsRequiredKeys) {
    const struct {
        const char *text, *path;
    } cases[] = {
        {"{}", "video"},
        {R"({"video": {"widthPx": 1, "heightPx": 1, "fps": 1}})", "events"},
        {R"({"video": {"widthPx": 1, "heightPx": 1}, "events": []})", "video.fps"},
        {R"({"video": {"widthPx": 1, "heightPx": 1, "fps": 1}, "events": [{"index": 0, "type": "tap"}]})",
            "events[0].tSec"},
        {R"({"video": {"widthPx": 1, "heightPx": 1, "fps": 1}, "events": [{"index": 0, "tSec": 0}]})",
            "events[0].type"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        try {
            decodeJson<Timeline>(c.text);
            ADD_FAILURE() << "nothing failed";
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), DecodingError::Kind::keyNotFound);
            EXPECT_EQ(error.path(), c.path);
        }
    }
}

}   // namespace
}   // namespace tavix
