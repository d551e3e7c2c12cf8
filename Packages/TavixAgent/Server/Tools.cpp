#include "TavixAgent/Server/Tools.h"

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixAgent/Server/JsonRpc.h"
#include "TavixAgent/Server/ToolSchemas.h"
#include "TavixAgent/Server/VerbRun.h"
#include "TavixBase/TextTrimming.h"

#include <algorithm>
#include <cmath>

namespace tavix {
namespace {

namespace fs = std::filesystem;

constexpr double quickSec = 120, renderSec = 3600;

VerbOutcome ran(const ToolCall& call, std::vector<std::string> words, std::string input = {},
    double mostSec = quickSec, bool tellsProgress = false) {
    VerbRequest request{.program = call.setting.program,
        .root = call.setting.root.path(),
        .words = std::move(words),
        .input = std::move(input),
        .mostSec = mostSec};
    if (tellsProgress) request.onProgress = call.onProgress;
    VerbOutcome outcome = runVerb(request, call.stop);
    if (outcome.wasStopped || outcome.ranOutOfTime) throw Failure(outcome.complaint());
    return outcome;
}

// What the verb gives as JSON; documents with errors have an answer too.
Json asked(const ToolCall& call, std::vector<std::string> words, std::string input = {}) {
    words.emplace_back("--json");
    const VerbOutcome outcome = ran(call, std::move(words), std::move(input));
    std::optional<Json> json = outcome.json();
    if (!json || json->find("error")) throw Failure(outcome.complaint());
    return std::move(*json);
}

std::string document(const ToolCall& call, std::string_view key = "path") {
    return call.setting.root.resolved(call.arguments.text(key)).string();
}

// Where a picture is kept when nobody says where.
fs::path ownPictureFile(const ToolCall& call, const std::string& kind) {
    const fs::path folder = call.setting.root.resolved(".tavix/pictures");
    fs::create_directories(folder);
    return folder / (fs::path(document(call)).stem().string() + "-" + kind + ".png");
}

fs::path pictureFile(const ToolCall& call, const std::string& kind) {
    const auto output = call.arguments.optionalText("output");
    return output ? call.setting.root.resolved(*output) : ownPictureFile(call, kind);
}

ToolAnswer answered(Json json) {
    if (json.object()) return {std::move(json), {}, {}};
    return {JsonObject{{"items", std::move(json)}}, {}, {}};
}

ToolAnswer newDocument(const ToolCall& call) {
    const std::string path = document(call);
    std::vector<std::string> words{"new", path};
    call.arguments.addTo(words, "template", "--template");
    call.arguments.addTo(words, "size", "--size");
    asked(call, std::move(words));
    Json read = asked(call, {"read", path, "--depth", "3"});
    return {JsonObject{{"path", path}, {"revision", *read.find("revision")}, {"text", *read.find("text")}},
        {}, {}};
}

ToolAnswer readDocument(const ToolCall& call) {
    std::vector<std::string> words{"read", document(call)};
    call.arguments.addTo(words, "pointer", "--pointer");
    call.arguments.addTo(words, "depth", "--depth");
    return answered(asked(call, std::move(words)));
}

ToolAnswer editDocument(const ToolCall& call) {
    std::vector<std::string> words{"edit", document(call)};
    call.arguments.addTo(words, "ifRevision", "--if-revision");
    std::string patch;
    if (const Json* given = call.arguments.value("patch")) {
        words.insert(words.end(), {"--patch", "-"});
        patch = rpc::inOneLine(*given);
    } else {
        const auto pointer = call.arguments.optionalText("pointer");
        if (!pointer) throw UsageError("Say what to change: a patch, or a pointer with a value.");
        words.insert(words.end(), {"--pointer", *pointer});
        if (const Json* value = call.arguments.value("value"))
            words.insert(words.end(), {"--value", rpc::inOneLine(*value)});
    }
    return answered(asked(call, std::move(words), std::move(patch)));
}

ToolAnswer check(const ToolCall& call) {
    std::vector<std::string> words{"check", document(call)};
    call.arguments.addTo(words, "quick", "--quick");
    return answered(asked(call, std::move(words)));
}

ToolAnswer describe(const ToolCall& call) {
    std::vector<std::string> words{"describe", document(call)};
    for (const char* key : {"at", "scene", "local", "from", "to"})
        call.arguments.addTo(words, key, std::string("--").append(key));
    if (call.arguments.flag("structure")) return answered(asked(call, std::move(words)));
    const VerbOutcome outcome = ran(call, std::move(words));
    if (outcome.status != 0) throw Failure(outcome.complaint());
    return {JsonObject{{"text", outcome.out}}, outcome.out, {}};
}

ToolAnswer pictureOf(const ToolCall& call, std::vector<std::string> words, const fs::path& file) {
    words.insert(words.end(), {"-o", file.string()});
    Json told = asked(call, std::move(words));
    return {std::move(told), {}, file};
}

ToolAnswer still(const ToolCall& call) {
    std::vector<std::string> words{"still", document(call)};
    for (const char* key : {"at", "scene", "local"})
        call.arguments.addTo(words, key, std::string("--").append(key));
    return pictureOf(call, std::move(words), pictureFile(call, "still"));
}

ToolAnswer sheet(const ToolCall& call) {
    std::vector<std::string> words{"sheet", document(call), "--width", "1000"};
    for (const char* key : {"from", "to", "every", "scene", "columns", "annotate"})
        call.arguments.addTo(words, key, std::string("--").append(key));
    return pictureOf(call, std::move(words), pictureFile(call, "sheet"));
}

ToolAnswer diff(const ToolCall& call) {
    std::vector<std::string> words{"diff", document(call), document(call, "other")};
    if (!call.arguments.flag("sheet")) return answered(asked(call, std::move(words)));
    const fs::path file = pictureFile(call, "diff");
    words.insert(words.end(), {"--sheet", file.string()});
    Json told = asked(call, std::move(words));
    const bool isDrawn = told.find("sheet") != nullptr;
    return {std::move(told), {}, isDrawn ? std::optional(file) : std::nullopt};
}

ToolAnswer render(const ToolCall& call) {
    const std::string path = document(call);
    const auto output = call.arguments.optionalText("output");
    const fs::path film = output ? call.setting.root.resolved(*output)
                                 : call.setting.root.path() / (fs::path(path).stem().string() + ".mp4");
    // What renders keep for the next one lies outside the root.
    std::vector<std::string> words{"render", path, "-o", film.string(), "--no-cache", "--progress", "json"};
    for (const char* key : {"effort", "codec", "resolution", "fps", "rate"})
        call.arguments.addTo(words, key, std::string("--").append(key));
    call.arguments.addTo(words, "maxSize", "--max-size");
    const VerbOutcome outcome = ran(call, std::move(words), {}, renderSec, true);
    const std::optional<Json> last = outcome.json();
    const Json* event = last ? last->find("event") : nullptr;
    if (outcome.status != 0 || !event || event->stringValue() != "done") throw Failure(outcome.complaint());
    JsonObject told = *last->object();
    told.remove("event");
    told.set("probe", asked(call, {"probe", film.string()}));
    const fs::path picture = ownPictureFile(call, "film");
    asked(call, {"sheet", path, "--width", "800", "-o", picture.string()});
    return {std::move(told), {}, picture};
}

bool matches(const Json& entry, const std::string& words) {
    const std::string text = lowered(rpc::inOneLine(entry));
    std::size_t at = 0;
    while (at < words.size()) {
        const std::size_t end = std::min(words.find(' ', at), words.size());
        if (text.find(lowered(words.substr(at, end - at))) == std::string::npos) return false;
        at = end + 1;
    }
    return true;
}

ToolAnswer presets(const ToolCall& call) {
    std::vector<std::string> words{"presets", call.arguments.text("family")};
    if (const auto name = call.arguments.optionalText("name")) words.push_back(*name);
    Json told = asked(call, std::move(words));
    const auto search = call.arguments.optionalText("search");
    if (JsonArray* entries = told.array(); entries && search)
        std::erase_if(*entries, [&](const Json& entry) { return !matches(entry, *search); });
    return answered(std::move(told));
}

ToolAnswer schema(const ToolCall& call) {
    const VerbOutcome outcome = ran(call, {"schema", call.arguments.text("type")});
    auto json = outcome.json();
    if (outcome.status != 0 || !json) throw Failure(outcome.complaint());
    return {JsonObject{{"schema", std::move(*json)}}, {}, {}};
}

template <const char* const& verb> ToolAnswer ofFile(const ToolCall& call) {
    return answered(asked(call, {verb, document(call)}));
}
constexpr const char* beatsVerb = "beats";
constexpr const char* probeVerb = "probe";
constexpr const char* brandVerb = "brand";

constexpr Tool table[] = {
    {"new_document", "Start a document",
        "Start here: writes a .tavixcomp bundle from a template and tells its revision and outline. Costs little.",
        false, ToolSchemas::newDocument, ToolSchemas::newDocumentOutput, newDocument},
    {"read_document", "Read a document",
        "Read a document or, by pointer and depth, a part of it as its author wrote it, with its revision. Cheap when you give a pointer.",
        true, ToolSchemas::readDocument, ToolSchemas::readDocumentOutput, readDocument},
    {"edit_document", "Change a document",
        "Change a document by a JSON Patch, or set the value at a pointer; leave the value out to remove. All of it or nothing. Give ifRevision, so that nobody's change is lost. Tells which findings came and went.",
        false, ToolSchemas::editDocument, ToolSchemas::editDocumentOutput, editDocument},
    {"check", "Judge a document",
        "What is wrong, most important first, each with a pointer and where certain a repair to pass to edit_document; loudness, size and time of an export. Takes seconds; quick draws no frames.",
        true, ToolSchemas::check, ToolSchemas::checkOutput, check},
    {"describe", "See a frame in words",
        "What a moment shows, where, how large, hidden by what, in which font and contrast, and when it changes; or over from and to, what happens when. Ask this before any picture: it costs a few hundred words and milliseconds.",
        true, ToolSchemas::describe, ToolSchemas::describeOutput, describe},
    {"still", "See one frame", "One frame as a picture. Takes about a second; describe is cheaper.", true,
        ToolSchemas::still, ToolSchemas::pictureOutput, still},
    {"sheet", "See the film at a glance",
        "A contact sheet of the film, of a scene or of a stretch, in one picture. Use it to judge the look, once describe and check have nothing more to say.",
        true, ToolSchemas::sheet, ToolSchemas::pictureOutput, sheet},
    {"diff", "Compare two documents",
        "What changed from one document to another, in words, with the times of the film that it touches.",
        true, ToolSchemas::diff, ToolSchemas::diffOutput, diff},
    {"render", "Render the film",
        "Render the film to a file. Takes a while: it tells its progress and can be cancelled. Check first.",
        false, ToolSchemas::render, ToolSchemas::renderOutput, render},
    {"presets", "Names to use",
        "Names of a family with a line each, or one in full: motions, transitions, effects, kinetic texts, sounds and more. Narrow it by search words.",
        true, ToolSchemas::presets, ToolSchemas::anyOutput, presets},
    {"schema", "Keys of a type",
        "The JSON Schema of one type of a document, as layer or text, with the types that it uses.", true,
        ToolSchemas::schema, ToolSchemas::schemaOutput, schema},
    {"beats", "Hear the beat", "Tempo, first beat and parts of a piece of music, to cut on.", true,
        ToolSchemas::file, ToolSchemas::anyOutput, ofFile<beatsVerb>},
    {"probe", "Look into a media file", "Size, length, rate and sound of a film or sound file.", true,
        ToolSchemas::file, ToolSchemas::anyOutput, ofFile<probeVerb>},
    {"brand", "Find a brand's look", "Colours and fonts of an application, from its source folder.", true,
        ToolSchemas::file, ToolSchemas::anyOutput, ofFile<brandVerb>},
};

}   // namespace

std::span<const Tool> tools() { return table; }

const Tool* toolNamed(std::string_view name) {
    const auto found = std::ranges::find(tools(), name, &Tool::name);
    return found == tools().end() ? nullptr : &*found;
}

Json toolAsJson(const Tool& tool) {
    return JsonObject{{"name", tool.name}, {"title", tool.title}, {"description", tool.description},
        {"inputSchema", tool.input()}, {"outputSchema", tool.output()},
        {"annotations", JsonObject{{"title", tool.title}, {"readOnlyHint", tool.onlyReads},
                            {"destructiveHint", !tool.onlyReads}, {"openWorldHint", false}}}};
}

}   // namespace tavix
