// How a film is asked for on the command line: its file, its kind, its size and its rate, and how much effort
// goes into it. Every verb that writes a film takes the same.
#pragma once

#include "Engine/Output/OutputChoice.h"
#include "TavixCore/Document/FrameRate.h"
#include "TavixCore/Support/Json.h"
#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixRender/Encoding/FilmWriter.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace tavix::engine {

class Arguments;

class FilmArguments {
public:
    void declare(Arguments& arguments);

    // `name` is that of the film where no output is given. Throws `UsageError` for wishes that contradict
    // each other.
    OutputChoice choose(const std::string& name) const { return chooseOutput(request_, name); }

    // The same of what is made on the way to a film: the output says nothing of its kind.
    OutputChoice chooseKind() const {
        OutputRequest kind = request_;
        kind.output.reset();
        return chooseOutput(kind, "film");
    }
    const std::optional<std::string>& output() const { return request_.output; }

    // Of the film, for what has that size and rate by itself. Both throw `UsageError` for what cannot be.
    imaging::Size size(imaging::Size native, ExportFormat format) const;
    FrameRate rate(const FrameRate& native, ExportFormat format) const;

    media::EncodingEffort effort() const { return effort_.value_or(media::EncodingEffort::fast); }
    // How much of the pictures the film keeps. Throws `UsageError` where the film takes no such wish.
    ExportRate kept(const OutputChoice& choice) const;
    FilmFile file(const OutputChoice& choice, const std::filesystem::path& output) const {
        return {
            output, choice.format, choice.codec, choice.container, effort(), kept(choice), choice.hardware};
    }

private:
    OutputRequest request_;
    std::optional<media::EncodingEffort> effort_;
    std::optional<ResolutionPreset> resolution_;
    std::optional<FrameRate> fps_;
    std::optional<int> quality_;
    std::optional<std::int64_t> bitsPerSec_;
};

// What came out, for whoever reads results. Of pictures, `film` is the pattern of their names.
JsonObject filmResult(
    const std::filesystem::path& film, std::int64_t frames, const FrameRate& rate, imaging::Size size);

}   // namespace tavix::engine
