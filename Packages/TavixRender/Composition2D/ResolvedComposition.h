// A composition made ready to be drawn. It answers any time, in any order, with a lazy picture of the frame.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Assets/RenderLog.h"
#include "TavixRender/Composition2D/BuildMemory.h"
#include "TavixRender/Composition2D/LayerBuild.h"
#include "TavixRender/Composition2D/RenderRoom.h"
#include "TavixRender/Composition2D/ResolvedCompositionLayer.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavix {

// Of the document's output. A side that no frame can have comes out as one that no frame can have either.
imaging::Size canvasSize(const CompositionSpec& spec);

// The document as it comes here has its beats, marks and presets resolved. Used by one thread at a time.
class ResolvedComposition {
public:
    // The pool keeps stages of 3D devices for the next build; it must outlive this. Never fails: what cannot
    // be read is named in the log and not drawn. Relative paths belong to `assetRoot`, or to the document's
    // own when none is given. The evaluator draws what does not change in time, once.
    //
    // What a frame shows is made for the first frame that shows it and given up when it is out of sight, so
    // memory does not grow with the document. With a memory all of it is made at once and stays, and what the
    // build before made of equal parts serves this one too; the room is for builds without. What is drawn is
    // the same.
    ResolvedComposition(const CompositionSpec& spec, const std::optional<std::filesystem::path>& assetRoot,
        imaging::Evaluator& evaluator, const RenderLog& log,
        Composition3DRendererPool* rendererPool = nullptr, BuildMemory* memory = nullptr,
        const RenderRoom& room = {});
    ~ResolvedComposition();
    ResolvedComposition(const ResolvedComposition&) = delete;
    ResolvedComposition& operator=(const ResolvedComposition&) = delete;

    const CompositionSpec& spec() const { return spec_; }
    const CompositionTimeline& timeline() const { return timeline_; }
    const imaging::Rect& bounds() const { return bounds_; }
    bool hasDevicesInSpace() const { return hasDevicesInSpace_; }
    // Of a scene; layers that are never shown have no entry.
    const std::vector<ResolvedCompositionLayer>& layers(std::size_t scene) const { return layers_[scene]; }

    imaging::Image frame(double globalSec);
    // Of what a frame shows, found without drawing anything: in builds with one memory equal keys mean equal
    // frames. Nothing without a memory.
    std::optional<Digest> frameKey(double globalSec) const;
    // Of builds with a memory: sets up a part of what frames after that time show, the scene that comes next
    // first, as far as scenes are kept ready. False when all of that stands.
    bool prepare(double globalSec);
    // Without the transitions around it.
    imaging::Image renderScene(std::size_t scene, double localSec);
    // Lets the screens of 3D devices lag behind while someone drags through the time.
    void setScrubQuality(bool isOn);
    void setRough(bool isOn);   // of devices in space
    // In document order, but neighbouring devices in space that are live at that time stand with the nearest
    // last.
    std::vector<const ResolvedCompositionLayer*> depthOrderedLayers(std::size_t scene, double localSec) const;

    // The seed that a text preset of a layer starts from. Indices count in the document.
    static std::int64_t presetSeed(std::int64_t documentSeed, std::size_t scene, std::size_t layerIndex);

private:
    struct Workshop;   // what layers are made with

    void buildBackgrounds();
    void buildLayers();
    ResolvedCompositionLayer resolvedLayer(std::size_t scene, std::size_t index, const LayerWindow& window);
    const imaging::Image& backgroundOf(std::size_t scene);
    void restAllBut(std::size_t outgoing, std::size_t incoming);
    void restScene(std::size_t scene, std::size_t outgoing);
    bool prepareScene(std::size_t scene);
    void addSceneKey(Hash& key, const CompositionTimeline::ActiveScene& active) const;

    CompositionSpec spec_;
    CompositionTimeline timeline_;
    imaging::Rect bounds_;
    std::unique_ptr<Workshop> workshop_;
    std::vector<BuildMemory::Background> backgrounds_;   // of scenes out of sight without a picture
    std::vector<std::uint64_t> transitionIDs_;           // of the scenes; 0 without a transition
    std::vector<std::vector<ResolvedCompositionLayer>> layers_;
    std::vector<std::size_t> awake_;   // the scenes whose layers hold what they draw with, the latest first
    bool hasDevicesInSpace_ = false;
};

}   // namespace tavix
