// A document that plays: makes the player show it, and every document that comes after it, at the least cost.
#pragma once

#include "TavixLive/Playback/DrawAhead.h"
#include "TavixLive/Playback/Player.h"
#include "TavixLive/Stage/PreviewMaker.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace tavix {

// What the time line and the sound of a player are made from, and nothing else: documents with equal keys
// need no other player item.
std::string structuralKey(const CompositionSpec& spec);

// Used on the main executor, where everything comes back; what is not wanted any more never does.
class LivePreview {
public:
    // All of them outlive the preview. Files of sound are looked at by the workers.
    struct Executors {
        system::SerialExecutor& main;
        system::SerialExecutor& render;
        system::Executor& workers;
    };
    struct Logs {
        RenderLog render;   // what is left out of pictures and sound; told on any thread
        RenderLog scrub;    // what frames cost; told on the render executor
    };
    struct Ended {
        bool isOvertaken = false;             // by another document, or by the end: nothing has changed
        std::optional<std::string> failure;   // a finished sentence: nothing has changed
    };
    using Then = std::function<void(const Ended& ended)>;

    LivePreview(const Executors& executors, std::shared_ptr<PreviewMaker> maker, media::AudioOutput* output,
        Logs logs = {});
    ~LivePreview();

    // The document has its beats, marks and presets resolved. Where the structure stays, the player keeps its
    // item, its position and its rate; otherwise it gets a new one, at the position of the old one. `then` is
    // called once, with the picture of the new document on its way, or on the stage.
    void show(std::shared_ptr<const CompositionSpec> spec, const PreviewMaker::AssetRoot& assetRoot,
        imaging::Size room, Then then);
    void show(const CompositionSpec& spec, const PreviewMaker::AssetRoot& assetRoot, imaging::Size room,
        Then then) {
        show(std::make_shared<const CompositionSpec>(spec), assetRoot, room, std::move(then));
    }
    // A file of the sound has changed: the next document makes it anew, whatever its structure.
    void noteSoundChanged() { shownKey_.reset(); }
    // What is being made is wanted no more: nothing changes until another document is shown.
    void abandon() { ++epoch_; }
    // Shows nothing any more.
    void close();

    Player& player() { return player_; }
    DrawAhead& ahead() { return ahead_; }
    RenderChain* pictures() { return player_.item() ? player_.item()->pictures.get() : nullptr; }
    double totalSec() const { return player_.item() ? player_.item()->totalSec : 0; }

    // To the maker, in turn with the pictures.
    void onMaker(std::function<void(PreviewMaker& maker)> job);

    static constexpr double mostFramesPerSec = 30;

private:
    struct Request {
        std::shared_ptr<const CompositionSpec> spec;
        PreviewMaker::AssetRoot assetRoot;
        imaging::Size room;
        std::string key;
        Then then;
        std::uint64_t epoch = 0;
    };
    bool isStale(const Request& request) const { return request.epoch != epoch_; }
    void lightly(const std::shared_ptr<Request>& request);
    void anew(const std::shared_ptr<Request>& request);
    void setItem(const std::shared_ptr<Request>& request, FrameSourceRef source,
        std::optional<media::AudioTimeline> sound);
    void fail(const Request& request, const std::string& sentence);

    Executors executors_;
    std::shared_ptr<PreviewMaker> maker_;
    Logs logs_;
    Player player_;
    DrawAhead ahead_;
    std::optional<std::string> shownKey_;   // of the item
    std::uint64_t epoch_ = 0;
    system::Lifeline lifeline_;
};

}   // namespace tavix
