#include "TavixRender/Judge/FilmAssets.h"

#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/Assets/CompositionAssets.h"

namespace tavix {
namespace {

FilmAssets::Still readStill(const std::filesystem::path& file) {
    try {
        return {media::readStillHeader(file), {}};
    } catch (const media::MediaError& error) {
        return {std::nullopt, error.what()};
    }
}

FilmAssets::Clip readClip(const std::filesystem::path& file) {
    std::error_code unknown;
    if (!std::filesystem::is_regular_file(file, unknown))
        return {std::nullopt, "There is no clip \"" + file.string() + "\"."};
    try {
        const auto size = media::mediaShownSize(file);
        return {size, size ? "" : "The clip \"" + file.string() + "\" holds no picture."};
    } catch (const media::MediaError& error) {
        return {std::nullopt, error.what()};
    }
}

}   // namespace

FilmAssets::FilmAssets(std::optional<std::filesystem::path> root) : root_(std::move(root)) {}
FilmAssets::~FilmAssets() = default;

const text::FontBook& FilmAssets::fonts() {
    if (!fonts_) fonts_ = std::make_unique<const text::FontBook>();
    return *fonts_;
}

std::filesystem::path FilmAssets::resolved(const std::string& path) const {
    return CompositionAssets::resolved(path, root_);
}

const FilmAssets::Still& FilmAssets::still(const std::string& path) {
    const std::filesystem::path file = CompositionAssets::tildeExpanded(resolved(path).string());
    const auto known = stills_.find(file);
    return known != stills_.end() ? known->second : stills_.emplace(file, readStill(file)).first->second;
}

const FilmAssets::Clip& FilmAssets::clip(const std::string& path) {
    const std::filesystem::path file = resolved(path);
    const auto known = clips_.find(file);
    return known != clips_.end() ? known->second : clips_.emplace(file, readClip(file)).first->second;
}

}   // namespace tavix
