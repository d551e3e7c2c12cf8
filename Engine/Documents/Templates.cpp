#include "Engine/Documents/Templates.h"

#include "Engine/Console/Words.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixRender/Assets/ResourceFolders.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

constexpr imaging::Size wide{1920, 1080}, tall{1080, 1920}, square{1080, 1080};

constexpr Template table[] = {
    {"teaser", "A line, a promise and a date: moving type in the dark, with a chime.", wide},
    {"phone-hero", "One phone in space: its entrance, its turn with three numbers, a name.", tall},
    {"feature-tour", "Three features, each with its screen, its headline and its colour.", wide},
    {"announcement", "News in three steps: what it is, what is in it, what to do.", wide},
    {"on-the-beat", "Words and a phone cut to music at 120 beats a minute.", tall},
    {"square-social", "A question, three screens and an answer, for a feed.", square},
};

constexpr std::string_view assetFolder = "assets/";

std::string_view shapeOf(imaging::Size size) {
    constexpr double clearlyLonger = 1.25;
    const double ratio = double(size.width) / size.height;
    return ratio > clearlyLonger ? "wide" : ratio < 1 / clearlyLonger ? "tall" : "square";
}

fs::path installed(const std::string& path) {
    if (const auto file = ResourceFolders::find("templates/" + path)) return *file;
    throw Failure("The templates are not installed: share/tavix/templates/" + path +
                  " is missing beside the program; install it again.");
}

// From the frame that a document was composed for to the one that is asked for. What is drawn grows evenly,
// and what stands apart keeps its part of the frame.
struct Growth {
    double across, down;

    double even() const { return std::min(across, down); }
};

double rounded(double value) { return std::round(value * 1e4) / 1e4; }

std::optional<double> factorOf(std::string_view key, const Growth& growth) {
    if (key == "sizeFraction" || key == "heightFraction" || key == "blurRadiusFraction")
        return growth.even() / growth.down;
    if (key == "widthFraction") return growth.even() / growth.across;
    if (key == "basePaddingPx") return growth.even();
    return std::nullopt;
}

Json grown(const Json& value, const Growth& growth);

JsonObject grownPoint(const Json& point, double across, double down) {
    return {{"x", rounded(*point.find("x")->doubleValue() * across)},
        {"y", rounded(*point.find("y")->doubleValue() * down)}};
}

// Where a device stands at a moment: offsets count in canvas heights.
JsonObject grownPlace(const JsonObject& place, const Growth& growth) {
    JsonObject made = place;
    made.set("offset", grownPoint(*place.find("offset"), growth.across / growth.down, 1));
    made.set("scale", rounded(*place.find("scale")->doubleValue() * growth.even() / growth.down));
    return made;
}

Json grownMember(const JsonMember& member, const Growth& growth) {
    if (member.key == "position") return grownPoint(member.value, growth.across, growth.down);
    if (const auto factor = factorOf(member.key, growth))
        return rounded(*member.value.doubleValue() * *factor);
    return grown(member.value, growth);
}

Json grown(const Json& value, const Growth& growth) {
    if (const JsonArray* elements = value.array()) {
        JsonArray made;
        for (const Json& element : *elements) made.push_back(grown(element, growth));
        return made;
    }
    const JsonObject* members = value.object();
    if (!members) return value;
    if (members->find("tSec") && members->find("offset")) return grownPlace(*members, growth);
    JsonObject made;
    for (const JsonMember& member : *members) made.set(member.key, grownMember(member, growth));
    return made;
}

void collectAssets(const Json& value, std::set<std::string>& names) {
    if (const std::string* text = value.text(); text && text->starts_with(assetFolder))
        names.insert(text->substr(assetFolder.size()));
    if (const JsonArray* elements = value.array())
        for (const Json& element : *elements) collectAssets(element, names);
    if (const JsonObject* members = value.object())
        for (const JsonMember& member : *members) collectAssets(member.value, names);
}

}   // namespace

std::span<const Template> templates() { return table; }

const Template& templateNamed(const std::string& name) {
    std::vector<std::string_view> names;
    for (const Template& entry : table) {
        if (equalIgnoringCase(entry.name, name)) return entry;
        names.push_back(entry.name);
    }
    throw UsageError(
        "There is no template \"" + name + "\"; use " + listed(names) + "." + suggestion(name, names));
}

TemplateDocument documentOf(const Template& chosen, imaging::Size size) {
    const fs::path file = installed(std::string(chosen.name) + "/" + std::string(shapeOf(size)) + ".json");
    const Json composed = parseJson(readBytes(file));
    const Json& output = *composed.find("output");
    const Growth growth{size.width / *output.find("widthPx")->doubleValue(),
        size.height / *output.find("heightPx")->doubleValue()};
    Json document = grown(composed, growth);
    JsonObject frame = *output.object();
    frame.set("widthPx", size.width);
    frame.set("heightPx", size.height);
    document.object()->set("output", std::move(frame));

    std::set<std::string> names;
    collectAssets(document, names);
    TemplateDocument made{writeJson(document), {}};
    for (const std::string& name : names) made.assets.push_back(installed("assets/" + name));
    return made;
}

}   // namespace tavix::engine
