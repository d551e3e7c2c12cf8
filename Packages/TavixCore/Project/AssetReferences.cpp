#include "TavixCore/Project/AssetReferences.h"

#include "TavixCore/Project/AssetPacker.h"

#include <string>
#include <variant>

namespace tavix {

namespace {

// Fonts are named, or are files; a name has no slash.
bool looksLikePath(const std::string& font) { return font.find('/') != std::string::npos; }

class References {
public:
    explicit References(AssetPacker& packer) : packer_(packer) {}

    void pack(CompositionSpec& spec) {
        for (auto& [key, font] : spec.fonts)
            if (looksLikePath(font)) rebase(font);
        (*this)(spec.background);
        for (CompositionScene& scene : spec.scenes) pack(scene);
        if (spec.audio) pack(*spec.audio);
    }

    void operator()(TextContent& text) {
        if (text.font && looksLikePath(*text.font) && packer_.hasFile(*text.font)) rebase(*text.font);
    }
    void operator()(DeviceContent& device) {
        std::visit(*this, device.screen);
        if (device.mockup.framePath) rebase(*device.mockup.framePath);
    }
    void operator()(StillScreen& still) { rebase(still.path); }
    void operator()(VideoClip& recording) { recording.path = packer_.rebasedClip(recording.path); }
    void operator()(ImageContent& image) { rebase(image.path); }
    void operator()(VideoContent& video) { rebase(video.clip.path); }
    void operator()(ShapeContent&) {}
    void operator()(BackgroundFill& fill) {
        auto* image = std::get_if<BackgroundImage>(&fill);
        if (image && image->path) rebase(*image->path);
    }

private:
    void pack(CompositionScene& scene) {
        if (scene.background) (*this)(*scene.background);
        for (CompositionLayer& layer : scene.layers) std::visit(*this, layer.content);
    }
    void pack(CompositionAudio& audio) {
        if (audio.music) rebase(audio.music->path);
        for (SoundCue& cue : audio.cues)
            if (!cue.resolvedSound()) rebase(cue.sound);
    }
    void rebase(std::string& path) { path = packer_.rebased(path); }

    AssetPacker& packer_;
};

}   // namespace

void packReferences(CompositionSpec& spec, AssetPacker& packer) { References(packer).pack(spec); }

}   // namespace tavix
