// A number says in the schema what it counts, and its key does not say another thing.
#include "TavixCore/Project/DocumentSchemas.h"
#include "TavixReel/Project/ReelSchemas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Ending {
    std::string_view of;
    std::vector<std::string_view> units;
};

const std::array endings{
    Ending{"Sec", {"s"}},
    Ending{"Seconds", {"s"}},
    Ending{"Ms", {"ms"}},
    Ending{"Px", {"px"}},
    Ending{"Deg", {"°"}},
    Ending{"Degrees", {"°"}},
    Ending{"Beat", {"beats"}},
    Ending{"Beats", {"beats"}},
    Ending{"Em", {"em", "times"}},
    Ending{"Hz", {"Hz"}},
    Ending{"Fraction", {"of the canvas height", "of the canvas width", "of its shorter side", "share"}},
    Ending{"opacity", {"share"}},
    Ending{"gain", {"times"}},
};

std::string unitOf(const Json& schema) {
    const Json* unit = schema.find("unit");
    return unit ? *unit->text() : "";
}

std::vector<std::string> contradictions(const Json& schema) {
    std::vector<std::string> found;
    for (const auto& [name, definition] : *schema.find("$defs")->object()) {
        const Json* properties = definition.find("properties");
        if (!properties) continue;
        for (const auto& [key, value] : *properties->object())
            for (const Ending& ending : endings) {
                if (!std::string_view(key).ends_with(ending.of)) continue;
                const std::string unit = unitOf(value);
                bool isOne = false;
                for (const std::string_view legal : ending.units) isOne = isOne || unit == legal;
                if (!isOne) found.push_back(name + "." + key + " is in \"" + unit + "\"");
            }
    }
    return found;
}

TEST(Units, AreThoseThatTheKeysSpeakOf) {
    EXPECT_THAT(contradictions(documentSchema("composition")->schema()), IsEmpty());
    for (const DocumentSchema& document : reelSchemas())
        EXPECT_THAT(contradictions(document.schema()), IsEmpty()) << document.name;
    const Json wrong = JsonObject{{"$defs",
        JsonObject{{"Lamp", JsonObject{{"properties", JsonObject{{"onSec", JsonObject{{"unit", "px"}}}}}}}}}};
    EXPECT_THAT(contradictions(wrong), ElementsAre("Lamp.onSec is in \"px\""));
}

}   // namespace
}   // namespace tavix
