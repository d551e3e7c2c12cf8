#include "TavixLive/Playback/LivePreview.h"

#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace tavix {

namespace {

std::string number(double value) { return writeJson(Json(value)); }

template <class T> std::optional<std::string> failureOf(system::Outcome<T>& outcome) try {
    outcome.value();
    return std::nullopt;
} catch (const std::exception& error) {
    return error.what();
}

}   // namespace

std::string structuralKey(const CompositionSpec& spec) try {
    std::string key;
    for (const CompositionScene& scene : spec.scenes) {
        if (!key.empty()) key += ",";
        key += number(scene.durationSec) + "@" +
               (scene.transition ? number(scene.transition->durationSec) : "-");
    }
    key += "|" + spec.output.fps.text() + "|" + std::to_string(spec.output.widthPx) + "x" +
           std::to_string(spec.output.heightPx) + "|";
    return key + (spec.audio ? encodedJson(*spec.audio) : "");
} catch (const Failure&) {
    return {};   // numbers that cannot be written; lint has said so
}

LivePreview::LivePreview(
    const Executors& executors, std::shared_ptr<PreviewMaker> maker, media::AudioOutput* output, Logs logs)
    : executors_(executors), maker_(std::move(maker)), logs_(std::move(logs)),
      player_(executors.main, output), ahead_(executors.main, player_) {}

LivePreview::~LivePreview() {
    // What it was made with goes where it was used.
    executors_.render.post([maker = std::move(maker_)]() mutable { maker.reset(); });
}

void LivePreview::onMaker(std::function<void(PreviewMaker&)> job) {
    executors_.render.post([maker = maker_, job = std::move(job)] { job(*maker); });
}

void LivePreview::close() {
    abandon();
    player_.setItem(std::nullopt);
    shownKey_.reset();
    ahead_.start();
    onMaker([](PreviewMaker& maker) {
        maker.setLiveMode(false);
        maker.forgetDevices();
    });
}

void LivePreview::show(std::shared_ptr<const CompositionSpec> spec, const PreviewMaker::AssetRoot& assetRoot,
    imaging::Size room, Then then) {
    std::string key = structuralKey(*spec);
    const auto request = std::make_shared<Request>(
        Request{std::move(spec), assetRoot, room, std::move(key), std::move(then), ++epoch_});
    if (!(CompositionTimeline(*request->spec).totalSec > 0)) {
        executors_.main.post(
            lifeline_.guard([this, request] { fail(*request, "The composition is empty (0 seconds)."); }));
        return;
    }
    if (player_.item() && shownKey_ == request->key)
        lightly(request);
    else
        anew(request);
}

void LivePreview::fail(const Request& request, const std::string& sentence) {
    Ended ended;
    ended.isOvertaken = isStale(request);
    if (!ended.isOvertaken) ended.failure = sentence;
    if (request.then) request.then(ended);
}

void LivePreview::lightly(const std::shared_ptr<Request>& request) {
    system::runThere(
        executors_.render, executors_.main,
        [maker = maker_, request] {
            return maker->source(*request->spec, request->assetRoot, request->room);
        },
        lifeline_.guard([this, request](system::Outcome<FrameSourceRef>& source) {
            if (const auto failure = failureOf(source)) return fail(*request, *failure);
            const bool isOvertaken = isStale(*request) || !player_.item();
            if (!isOvertaken) {
                player_.item()->pictures->setFrameSource(std::move(source.value()));
                player_.redraw();
                ahead_.disturb();
            }
            if (request->then) request->then({isOvertaken, {}});
        }));
}

void LivePreview::anew(const std::shared_ptr<Request>& request) {
    system::runThere(
        executors_.render, executors_.main,
        [maker = maker_, request] {
            maker->forgetDevices();
            return maker->source(*request->spec, request->assetRoot, request->room);
        },
        lifeline_.guard([this, request](system::Outcome<FrameSourceRef>& source) {
            if (const auto failure = failureOf(source)) return fail(*request, *failure);
            if (isStale(*request)) return fail(*request, {});
            system::runThere(
                executors_.workers, executors_.main,
                [maker = maker_, request] { return maker->sound(*request->spec, request->assetRoot); },
                lifeline_.guard([this, request, made = source.value()](
                                    system::Outcome<std::optional<media::AudioTimeline>>& sound) {
                    if (const auto failure = failureOf(sound)) return fail(*request, *failure);
                    if (isStale(*request)) return fail(*request, {});
                    setItem(request, made, std::move(sound.value()));
                }));
        }));
}

void LivePreview::setItem(const std::shared_ptr<Request>& request, FrameSourceRef source,
    std::optional<media::AudioTimeline> sound) {
    PlayerItem item;
    item.totalSec = source->totalSec();
    item.framesPerSec = std::clamp(double(request->spec->output.fps), 1.0, mostFramesPerSec);
    item.pictures =
        std::make_shared<RenderChain>(executors_.render, executors_.main, std::move(source), logs_.scrub);
    item.pictures->setOnFrameDelivered(
        lifeline_.guard([this](const StagePicture& picture, const FrameSource::Drawn& drawn) {
            if (drawn.isKept) ahead_.noteStored(picture.atSec);
        }));
    if (sound) item.sound.emplace(std::move(*sound), logs_.render);
    const double atSec = std::min(player_.currentSec(), item.totalSec);
    const bool wasPlaying = player_.isPlaying();
    player_.setItem(std::move(item));
    ahead_.start();
    shownKey_ = request->key;
    // Also when somebody has sought another picture of it meanwhile.
    player_.seek(player_.isSeeking() ? player_.currentSec() : atSec, lifeline_.guard([this, request](bool) {
        if (request->then) request->then({isStale(*request), {}});
    }));
    if (wasPlaying) player_.play();
}

}   // namespace tavix
