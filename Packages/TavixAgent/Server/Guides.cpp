#include "TavixAgent/Server/Guides.h"

#include "TavixAgent/Server/AnswerParts.h"
#include "TavixAgent/Server/JsonRpc.h"
#include "TavixAgent/Server/VerbRun.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Project/DocumentSchemas.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace tavix::Guides {
namespace {

constexpr std::string_view schemaBegin = "tavix://schema/", referenceBegin = "tavix://reference/",
                           catalogBegin = "tavix://catalog/", exampleBegin = "tavix://example/";
constexpr std::array<std::string_view, 10> families{"backgrounds", "effects", "transitions", "curves",
    "devices", "motions", "formations", "kinetic", "fonts", "sounds"};

struct Example {
    std::string_view name, meaning, document;
};
constexpr std::array<Example, 2> examples{{
    {"title-card", "A headline that comes in over a gradient and goes.",
        R"({"output": {"widthPx": 1920, "heightPx": 1080, "fps": 30},
 "background": {"kind": "gradient", "gradient": {"angleDegrees": 30, "stops": [
   {"location": 0, "color": {"r": 0.07, "g": 0.09, "b": 0.2, "a": 1}},
   {"location": 1, "color": {"r": 0.25, "g": 0.15, "b": 0.4, "a": 1}}]}},
 "scenes": [{"id": "title", "durationSec": 3, "layers": [
   {"id": "headline", "kind": "text", "position": {"x": 960, "y": 540},
    "text": {"text": "Ship it today", "sizeFraction": 0.12, "kinetic": {"preset": "word-pop"}}}]}]}
)"},
    {"two-scenes", "Two scenes with a transition between them, on the beat of a song.",
        R"({"output": {"widthPx": 1080, "heightPx": 1920, "fps": 30},
 "audio": {"music": {"path": "song.m4a", "bpm": 120}},
 "scenes": [
  {"id": "question", "durationBeats": 6, "transition": {"style": "wipe", "durationSec": 0.5}, "layers": [
    {"kind": "text", "position": {"x": 540, "y": 900},
     "text": {"text": "Still doing it by hand?", "sizeFraction": 0.05, "kinetic": {"preset": "fade-up"}}}]},
  {"id": "answer", "durationBeats": 8, "layers": [
    {"kind": "device", "device": {"screen": {"kind": "still", "path": "screen.png"}},
     "enter": {"durationSec": 0.6, "offset": {"x": 0, "y": 0.2}, "opacity": 0}}]}]}
)"},
}};

struct PromptEntry {
    std::string_view name, title, description, argument, meaning, text;
};
// The argument stands for "{}".
constexpr std::array<PromptEntry, 3> entries{{
    {"make_teaser", "Make a teaser", "A short film of a product, from nothing.", "product",
        "What the product is, and where its screenshots lie.",
        "Make a teaser of 15 to 25 seconds for this product: {}\n"
        "1. Ask brand for its colours and fonts if its source is here, and probe the pictures.\n"
        "2. new_document with the template teaser; read its outline.\n"
        "3. Give each scene one message. Use presets by name, and edit_document with a patch a scene.\n"
        "4. describe each scene at its middle, check, and apply the repairs that check gives.\n"
        "5. Look at one sheet. Mend what it shows, then render."},
    {"fix_findings", "Fix what is found", "Mends a document until check has nothing more.", "path",
        "The document.",
        "Mend the document {}.\n"
        "Run check. Pass each repair that it gives to edit_document with the revision; for findings without "
        "one, describe the moment, decide, and edit. Errors first. Stop when only matters of taste are left, "
        "and tell which and why they stay."},
    {"match_music", "Match the music", "Brings the cuts of a document onto the beat of a song.", "path",
        "The document, and the song.",
        "Bring the cuts onto the beat: {}\n"
        "Ask beats for the song, set audio.music with bpm and firstBeatSec, and turn the durationSec of "
        "scenes into durationBeats of 4, 6 or 8. Let the strongest picture come at the drop. Then check: no "
        "finding cut-off-beat may be left."},
}};

Json entry(std::string_view begin, std::string_view name, std::string_view meaning, const char* mime) {
    return JsonObject{
        {"uri", std::string(begin) += name}, {"name", name}, {"description", meaning}, {"mimeType", mime}};
}

Json contentOf(std::string_view uri, const char* mime, std::string text) {
    if (text.size() > mostAnswerCharacters) {
        text.resize(mostAnswerCharacters);
        while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0x80)) text.pop_back();
        text += "\n… it goes on; ask for a smaller part.\n";
    }
    return JsonArray{JsonObject{{"uri", uri}, {"mimeType", mime}, {"text", std::move(text)}}};
}

std::optional<Json> ofVerb(std::string_view uri, const char* mime, std::vector<std::string> words,
    const ToolSetting& setting, const std::stop_token& stop) {
    const VerbOutcome outcome =
        runVerb({.program = setting.program, .root = setting.root.path(), .words = std::move(words)}, stop);
    if (outcome.status != 0) throw Failure(outcome.complaint());
    return contentOf(uri, mime, outcome.out);
}

}   // namespace

Json resources() {
    JsonArray all;
    for (const DocumentSchema& schema : documentSchemas()) {
        all.push_back(entry(schemaBegin, schema.name, schema.meaning, "application/schema+json"));
        all.push_back(entry(referenceBegin, schema.name, schema.meaning, "text/markdown"));
    }
    for (const std::string_view family : families)
        all.push_back(entry(catalogBegin, family, "The names of this family.", "application/json"));
    for (const Example& example : examples)
        all.push_back(entry(exampleBegin, example.name, example.meaning, "application/json"));
    return all;
}

std::optional<Json> read(std::string_view uri, const ToolSetting& setting, const std::stop_token& stop) {
    const auto nameAfter = [&](std::string_view begin) {
        return uri.starts_with(begin) ? std::string(uri.substr(begin.size())) : std::string();
    };
    if (const std::string type = nameAfter(schemaBegin); documentSchema(type))
        return ofVerb(uri, "application/schema+json", {"schema", type}, setting, stop);
    if (const std::string type = nameAfter(referenceBegin); documentSchema(type))
        return ofVerb(uri, "text/markdown", {"schema", type, "--markdown"}, setting, stop);
    if (const std::string family = nameAfter(catalogBegin);
        std::ranges::find(families, family) != families.end())
        return ofVerb(uri, "application/json", {"presets", family, "--json"}, setting, stop);
    const std::string name = nameAfter(exampleBegin);
    const auto example = std::ranges::find(examples, name, &Example::name);
    if (example == examples.end()) return std::nullopt;
    return contentOf(uri, "application/json", std::string(example->document));
}

Json prompts() {
    JsonArray all;
    for (const PromptEntry& prompt : entries)
        all.emplace_back(
            JsonObject{{"name", prompt.name}, {"title", prompt.title}, {"description", prompt.description},
                {"arguments", JsonArray{JsonObject{{"name", prompt.argument}, {"description", prompt.meaning},
                                  {"required", true}}}}});
    return all;
}

std::optional<Json> prompt(std::string_view name, const Json& arguments) {
    const auto found = std::ranges::find(entries, name, &PromptEntry::name);
    if (found == entries.end()) return std::nullopt;
    const Json* given = arguments.find(found->argument);
    std::string text(found->text);
    const std::size_t place = text.find("{}");
    text.replace(place, 2, given && given->text() ? *given->text() : "");
    return JsonObject{{"description", found->description},
        {"messages", JsonArray{JsonObject{{"role", "user"},
                         {"content", JsonObject{{"type", "text"}, {"text", std::move(text)}}}}}}};
}

}   // namespace tavix::Guides
