#include "Engine/Verbs/ProbeVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "TavixPlatform/Media/MediaProbe.h"

#include <cmath>
#include <cstdio>

namespace tavix::engine {

namespace {

// With as many decimals as say something, three at most.
std::string decimal(double number) {
    char text[352];   // any double fits
    std::snprintf(text, sizeof text, "%.10g", std::round(number * 1000) / 1000);
    return text;
}

std::string sizeText(imaging::Size size) {
    return std::to_string(size.width) + " × " + std::to_string(size.height);
}

std::string lineOf(const media::VideoTrackInfo& track) {
    std::string line = "video  " + track.codec + ", " + sizeText(track.shownSize) + " pixels";
    if (track.codedSize != track.shownSize) line += " (stored as " + sizeText(track.codedSize) + ")";
    if (track.framesPerSec > 0) line += ", " + decimal(track.framesPerSec) + " frames a second";
    for (const std::string* word : {&track.pixelFormat, &track.matrix, &track.range})
        if (!word->empty()) line += ", " + *word;
    return line;
}

std::string lineOf(const media::AudioTrackInfo& track) {
    return "audio  " + track.codec + ", " + std::to_string(track.sampleRateHz) + " Hz, " +
           std::to_string(track.channelCount) + (track.channelCount == 1 ? " channel" : " channels");
}

std::string linesOf(const media::MediaInfo& info) {
    std::string lines = info.container + ", " + decimal(info.durationSec) + " seconds\n";
    for (const auto& track : info.video) lines += lineOf(track) + "\n";
    for (const auto& track : info.audio) lines += lineOf(track) + "\n";
    return lines;
}

Json jsonOf(const media::VideoTrackInfo& track) {
    JsonObject json{{"codec", track.codec}, {"widthPx", track.shownSize.width},
        {"heightPx", track.shownSize.height}, {"codedWidthPx", track.codedSize.width},
        {"codedHeightPx", track.codedSize.height}, {"pixelFormat", track.pixelFormat}};
    if (track.framesPerSec > 0) json.set("fps", track.framesPerSec);
    if (!track.matrix.empty()) json.set("matrix", track.matrix);
    if (!track.range.empty()) json.set("range", track.range);
    return json;
}

JsonObject jsonOf(const media::MediaInfo& info) {
    JsonArray video, audio;
    for (const auto& track : info.video) video.push_back(jsonOf(track));
    for (const auto& track : info.audio)
        audio.push_back(JsonObject{
            {"codec", track.codec}, {"sampleRateHz", track.sampleRateHz}, {"channels", track.channelCount}});
    return JsonObject{{"container", info.container}, {"durationSec", info.durationSec},
        {"video", std::move(video)}, {"audio", std::move(audio)}};
}

}   // namespace

void ProbeVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("media", media_, "A film or sound file.", "probe needs a film or sound file.");
    arguments.jsonFlag(terminal);
}

void ProbeVerb::run(Terminal& terminal) {
    const media::MediaInfo info = media::probeMedia(media_);
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report(jsonOf(info));
    else
        terminal.result(linesOf(info));
}

}   // namespace tavix::engine
