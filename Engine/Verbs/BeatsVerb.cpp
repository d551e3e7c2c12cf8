#include "Engine/Verbs/BeatsVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Document.h"
#include "TavixRender/MusicAnalysis/MusicAnalyzer.h"

#include <filesystem>
#include <string_view>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

// As a document says it: from the folder of the bundle that the music is in.
std::string pathInDocument(const fs::path& music) {
    const fs::path whole = fs::absolute(music).lexically_normal();
    for (fs::path folder = whole.parent_path(); folder != folder.parent_path(); folder = folder.parent_path())
        if (folder.extension() == ".tavixcomp") return whole.lexically_relative(folder).generic_string();
    return music.generic_string();
}

// What a document says of such music.
std::string musicBed(const fs::path& music, const BeatAnalysis& heard) {
    return R"("music": {"path": )" + writeJson(pathInDocument(music)) + R"(, "bpm": )" +
           decimals(heard.bpm, 2) + R"(, "firstBeatSec": )" + decimals(heard.firstBeatSec, 3) + "}";
}

std::string tempoLine(const BeatAnalysis& heard) {
    std::string line = decimals(heard.bpm, 2) + " beats a minute";
    if (heard.alternativeBpm) line += " (or " + decimals(*heard.alternativeBpm, 2) + ", nearly as likely)";
    return line + ", confidence " + twoDecimals(heard.confidence) + "\n";
}

std::string beatsLine(const BeatAnalysis& heard) {
    std::string line = counted(static_cast<std::size_t>(heard.beatCount), "beat") + " from " +
                       decimals(heard.firstBeatSec, 3) + " s, in " + decimals(heard.durationSec, 1) + " s";
    if (heard.dropSec)
        line += "; drop at " + decimals(*heard.dropSec, 3) + " s, on beat " +
                decimals((*heard.dropSec - heard.firstBeatSec) * heard.bpm / 60, 0);
    return line + "\n";
}

std::string partsLine(const BeatAnalysis& heard) {
    std::string line =
        counted(heard.onsetsSec.size(), "onset") + ", " + counted(heard.sections.size(), "part");
    std::string_view before = ": ";
    for (const BeatAnalysis::Section& section : heard.sections) {
        line += before;
        line += "from " + decimals(section.startSec, 1) + " s at " + decimals(section.meanRmsDb, 0) + " dB";
        before = ", ";
    }
    return line + "\n";
}

// Why there is no beat, and what can be done without one.
std::string noBeatIn(const fs::path& music, const BeatAnalysis& heard) {
    constexpr double shortestSec = MusicAnalyzer::shortestSec;
    const std::string why = heard.durationSec < shortestSec
                                ? "it is only " + decimals(heard.durationSec, 1) +
                                      " s long, and a beat needs " + decimals(shortestSec, 0) + " s"
                                : std::string("nothing in it repeats");
    return "No beat was found in \"" + music.filename().string() + "\": " + why +
           R"(. If you know its tempo, give the music "bpm" and "firstBeatSec" in the document.)";
}

}   // namespace

void BeatsVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("music", music_, "A sound file, or a film with sound.", "beats needs a sound file.");
    arguments.flag("--write", writes_, "Keep the result beside the music, as NAME.beats.json.");
    arguments.jsonFlag(terminal);
}

void BeatsVerb::run(Terminal& terminal) {
    const fs::path music = music_;
    const BeatAnalysis heard = MusicAnalyzer::analyze(music);
    const bool hasBeat = heard.bpm > 0;
    if (!hasBeat) terminal.warn("no-beat", noBeatIn(music, heard), music.string());
    if (terminal.mode() == Terminal::Mode::json)
        terminal.reportRecord(Codec<BeatAnalysis>::write(heard));
    else if (hasBeat)
        terminal.result(tempoLine(heard) + beatsLine(heard) + partsLine(heard) +
                        "In a document: " + musicBed(music, heard) + "\n");
    if (!writes_ || !hasBeat) return;
    const fs::path sidecar = BeatAnalysis::sidecarPath(music);
    writeFile(heard, sidecar);
    terminal.tell("✓ Wrote " + sidecar.string());
}

}   // namespace tavix::engine
