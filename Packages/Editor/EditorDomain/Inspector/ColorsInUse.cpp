#include "Editor/EditorDomain/Inspector/ColorsInUse.h"

#include "TavixCore/Support/Document.h"

#include <algorithm>
#include <utility>

namespace tavix {

namespace {

struct Count {
    RGBAColor color;
    int times = 0;
};

// A colour is whatever has a red, a green and a blue in the document's text.
void count(const Json& json, std::vector<Count>& counts) {
    if (json.find("r") && json.find("g") && json.find("b")) {
        const auto color = decodeValue<RGBAColor>(json);
        const auto found = std::ranges::find(counts, color, &Count::color);
        if (found == counts.end())
            counts.push_back({color, 1});
        else
            ++found->times;
        return;
    }
    if (const JsonArray* const array = json.array())
        for (const Json& each : *array) count(each, counts);
    if (const JsonObject* const object = json.object())
        for (const auto& [key, value] : *object) count(value, counts);
}

}   // namespace

std::vector<RGBAColor> colorsInUse(const CompositionSpec& spec) {
    std::vector<Count> counts;
    count(writeValue(typeOf<CompositionSpec>(), &spec), counts);
    std::ranges::stable_sort(counts, std::greater(), &Count::times);
    std::vector<RGBAColor> colors;
    for (const Count& each : counts) colors.push_back(each.color);
    return colors;
}

}   // namespace tavix
