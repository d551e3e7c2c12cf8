// What a film comes to, found out by trying: how loud it is, how large and how long to make.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Support/Tables.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stop_token>

namespace tavix {

struct FilmFigures {
    double lengthSec = 0;
    std::int64_t frames = 0;
    std::optional<double> integratedLufs, truePeakDb;   // of the mix; absent where nothing is heard
    std::int64_t clippedSamples = 0;
    // Of an export with the usual settings on this machine, from a stretch that was exported.
    std::optional<double> estimatedBytes, estimatedSec;
    bool operator==(const FilmFigures&) const = default;
};
const Fields<FilmFigures>& fieldsOf(std::type_identity<FilmFigures>);

// Of a document in seconds that can be rendered. Takes some seconds at most beside mixing the sound. Throws
// `RenderStopped` when it is asked to stop, and `Failure` when nothing can be drawn or written.
FilmFigures figuresOf(
    const CompositionSpec& spec, const std::filesystem::path& assetRoot, const std::stop_token& stop = {});

}   // namespace tavix
