#include "TavixBase/NearestWord.h"
#include "TavixCore/Theme/BackgroundCatalog.h"
#include "TavixCore/Theme/CaptionStyle.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/Judge/FilmJudge.h"
#include "TavixRender/Typesetting/CaptionLayout.h"
#include "TavixRender/Typesetting/CompositionFontResolver.h"

#include <algorithm>
#include <set>
#include <system_error>

namespace tavix::FilmJudge {
namespace {

using CompositionLint::findingOf;
using CompositionLint::Rule;

constexpr std::size_t mostNeighbours = 2000;   // of a folder, when looking for what may be meant

// What lies in the file's folder and is spelt nearly like it; nothing for a file that is there.
std::optional<std::string> nearbyName(const std::filesystem::path& file) {
    std::error_code unreadable;
    if (std::filesystem::exists(file, unreadable)) return std::nullopt;
    std::vector<std::string> names;
    for (auto at = std::filesystem::directory_iterator(file.parent_path(), unreadable);
         !unreadable && at != std::filesystem::directory_iterator() && names.size() < mostNeighbours;
         at.increment(unreadable))
        names.push_back(at->path().filename().string());
    std::ranges::sort(names);
    const std::vector<std::string_view> views(names.begin(), names.end());
    return didYouMean(file.filename().string(), views);
}

class Search {
public:
    Search(const CompositionSpec& spec, FilmAssets& assets) : spec_(spec), assets_(assets) {}

    std::vector<Finding> findings() && {
        background(spec_.background, "background");
        for (std::size_t i = 0; i < spec_.scenes.size(); ++i) {
            const CompositionScene& scene = spec_.scenes[i];
            if (scene.background)
                background(*scene.background, "scenes[" + std::to_string(i) + "].background");
            for (std::size_t l = 0; l < scene.layers.size(); ++l) {
                path_ = pathOf(i, l);
                std::visit(*this, scene.layers[l].content);
            }
        }
        if (spec_.audio) sounds(*spec_.audio);
        return std::move(findings_);
    }

    void operator()(const ImageContent& image) { picture(image.path, path_ + ".image.path"); }
    void operator()(const VideoContent& video) { clip(video.clip.path, path_ + ".video.path"); }
    void operator()(const ShapeContent&) {}
    void operator()(const BackgroundFill& fill) { background(fill, path_ + ".fill"); }
    void operator()(const TextContent& text) { font(text); }
    void operator()(const DeviceContent& device) {
        if (const auto* video = std::get_if<VideoClip>(&device.screen))
            clip(video->path, path_ + ".device.screen.path");
        else if (const auto* reel = std::get_if<ReelClip>(&device.screen))
            this->reel(*reel, path_ + ".device.screen.path");
        else
            picture(std::get<StillScreen>(device.screen).path, path_ + ".device.screen.path");
        if (device.mockup.framePath) picture(*device.mockup.framePath, path_ + ".device.mockup.framePath");
    }

private:
    // An empty path is told by another rule.
    void picture(const std::string& path, const std::string& at) {
        if (path.empty() || assets_.still(path).header) return;
        findings_.push_back(findingOf(
            Rule::pictureMissing, at, assets_.still(path).fault, nearbyName(assets_.resolved(path))));
    }
    void clip(const std::string& path, const std::string& at) {
        if (path.empty() || assets_.clip(path).size) return;
        findings_.push_back(
            findingOf(Rule::clipMissing, at, assets_.clip(path).fault, nearbyName(assets_.resolved(path))));
    }
    void reel(const ReelClip& reel, const std::string& at) {
        const std::filesystem::path folder = assets_.resolved(reel.path);
        std::error_code ignored;
        if (reel.path.empty() || std::filesystem::is_directory(folder, ignored))
            return clip(reel.recordingPath(), at);
        findings_.push_back(findingOf(
            Rule::clipMissing, at, "There is no reel \"" + folder.string() + "\".", nearbyName(folder)));
    }
    void background(const BackgroundFill& fill, const std::string& at) {
        const auto* image = std::get_if<BackgroundImage>(&fill);
        if (!image) return;
        if (image->path) picture(*image->path, at + ".image.path");
        if (image->bundledID && !BackgroundCatalog::background(*image->bundledID))
            bundled(*image->bundledID, at);
    }
    void bundled(const std::string& id, const std::string& at) {
        std::vector<std::string_view> ids;
        for (const BundledBackground& entry : BackgroundCatalog::all) ids.push_back(entry.id);
        std::string list;
        for (const std::string_view known : ids) list.append(list.empty() ? "" : ", ").append(known);
        findings_.push_back(findingOf(Rule::pictureMissing, at + ".image.bundledID",
            "There is no background \"" + id + "\"; use one of " + list + ".", didYouMean(id, ids)));
    }
    void font(const TextContent& text) {
        if (!text.font || text.font->empty() || !fontsLookedFor_.insert(*text.font).second) return;
        const text::FontBook& book = assets_.fonts();
        const ResolvedFont found =
            CompositionFontResolver::resolve(text.font, spec_.fonts, assets_.root(), book);
        CaptionStyle style;
        style.fontName = found.name;
        style.fontPath = found.path;
        const auto note = CaptionLayout::resolveFont(style, 16, book).note;
        if (note) findings_.push_back(findingOf(Rule::fontMissing, path_ + ".text.font", *note));
    }
    void sounds(const CompositionAudio& audio) {
        if (audio.music) sound(audio.music->path, "audio.music.path");
        for (std::size_t i = 0; i < audio.cues.size(); ++i) {
            const SoundCue& cue = audio.cues[i];
            const bool isFile = !cue.resolvedSound() && cue.sound.find('.') != std::string::npos;
            if (isFile) sound(cue.sound, "audio.cues[" + std::to_string(i) + "].sound");
        }
    }
    void sound(const std::string& path, const std::string& at) {
        std::error_code unknown;
        const std::filesystem::path file = assets_.resolved(path);
        if (path.empty() || std::filesystem::is_regular_file(file, unknown)) return;
        findings_.push_back(findingOf(
            Rule::soundMissing, at, "There is no sound file \"" + file.string() + "\".", nearbyName(file)));
    }

    const CompositionSpec& spec_;
    FilmAssets& assets_;
    std::string path_;   // of the layer that is looked at
    std::set<std::string> fontsLookedFor_;
    std::vector<Finding> findings_;
};

}   // namespace

std::vector<Finding> missingFiles(const CompositionSpec& spec, FilmAssets& assets) {
    return Search(spec, assets).findings();
}

}   // namespace tavix::FilmJudge
