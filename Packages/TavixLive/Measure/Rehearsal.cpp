#include "TavixLive/Measure/Rehearsal.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixLive/Measure/LayerCosts.h"
#include "TavixLive/Playback/LivePreview.h"
#include "TavixLive/Playback/NullAudioOutput.h"
#include "TavixLive/Stage/Stage.h"
#include "TavixPlatform/System/EventLoop.h"
#include "TavixPlatform/System/WorkerThread.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavix {

namespace {

constexpr double msPerSec = 1000;
constexpr double intoSceneSec = 0.8;    // a device has come in by then
constexpr double scrubEverySec = 0.1;   // so that each is answered by itself

// The layers that are to be seen at that time of the film.
std::vector<CompositionLayer*> layersAt(CompositionSpec& spec, double atSec) {
    std::vector<CompositionLayer*> layers;
    const auto sample = CompositionTimeline(spec).sample(atSec);
    if (!sample) return layers;
    CompositionScene& scene = spec.scenes[sample->outgoing.index];
    const double localSec = sample->outgoing.localSeconds;
    for (CompositionLayer& layer : scene.layers)
        if (layer.opacity > 0 && localSec >= layer.fromSec &&
            localSec < layer.fromSec + layer.durationSec.value_or(scene.durationSec))
            layers.push_back(&layer);
    return layers;
}

// A light edit, such as a hand on a slider makes it: the look of a layer in sight, another one each time.
void nudge(CompositionSpec& spec, double atSec, int step) {
    const std::vector<CompositionLayer*> layers = layersAt(spec, atSec);
    if (layers.empty()) {
        spec.background = RGBAColor{0.1 + 0.02 * (step % 40), 0.2, 0.3, 1};
        return;
    }
    CompositionLayer& layer = *layers[std::size_t(step) % layers.size()];
    if (auto* device = std::get_if<DeviceContent>(&layer.content); device && device->scene3D)
        device->scene3D->tiltDegrees.y += 1.5;
    else if (auto* text = std::get_if<TextContent>(&layer.content))
        text->color.g = text->color.g > 0.5 ? text->color.g - 0.1 : text->color.g + 0.1;
    else
        layer.opacity = layer.opacity > 0.5 ? layer.opacity - 0.05 : layer.opacity + 0.05;
}

// Runs on the main executor, one act after another.
class Rehearsal {
public:
    Rehearsal(const CompositionSpec& spec, const std::optional<std::filesystem::path>& assetRoot,
        const RehearsalPlan& plan, const RenderLog& log)
        : spec_(spec), assetRoot_(assetRoot), plan_(plan), output_(sound_),
          preview_({main_, render_, workers_}, std::make_shared<Stage>(Stage::Options{}, log), &output_,
              {log, {}}) {
        preview_.player().setSink([this](const StagePicture& picture) { seen(picture); });
        preview_.player().setOnEnd([this] { endPlaying(); });
    }

    RehearsalReport run() {
        main_.post([this] { open(); });
        main_.run();
        preview_.close();
        if (failure_) throw Failure(*failure_);
        return report_;
    }

private:
    double nowSec() const { return main_.nowSec(); }
    void seen(const StagePicture& picture) {
        report_.stage = picture.pixels->size();
        if (onPicture_) std::exchange(onPicture_, {})();
    }
    void end() {
        report_.mainHoldMs = main_.takeLongestHoldSec() * msPerSec;
        main_.stop();
    }

    void open() {
        const double startSec = nowSec();
        onPicture_ = [this, startSec] { report_.firstPictureMs = (nowSec() - startSec) * msPerSec; };
        preview_.show(spec_, assetRoot_, plan_.room, [this](const LivePreview::Ended& ended) {
            if (ended.failure) {
                failure_ = ended.failure;
                return end();
            }
            scrub(0);
        });
    }

    // Back and forth over the whole film, in steps that no frame before helps with.
    void scrub(int step) {
        if (step == plan_.scrubs) return edit(0);
        preview_.pictures()->setScrubQuality(true);
        preview_.ahead().disturb();   // as a hand on the playhead does
        constexpr double goldenPart = 0.618033988749895;
        double whole = 0;
        const double part = std::modf(0.1 + step * goldenPart, &whole);
        const double startSec = nowSec();
        preview_.player().seek(part * preview_.totalSec(), [this, step, startSec](bool) {
            report_.scrubMs.all.push_back((nowSec() - startSec) * msPerSec);
            timer_ = main_.after(scrubEverySec, [this, step] { scrub(step + 1); });
        });
    }

    void edit(int step) {
        preview_.pictures()->setScrubQuality(false);
        if (step == plan_.edits) return drag();
        preview_.player().seek((step + 0.5) / plan_.edits * preview_.totalSec(), [this, step](bool) {
            nudge(spec_, preview_.player().currentSec(), step);
            const double startSec = nowSec();
            onPicture_ = [this, step, startSec] {
                report_.editMs.all.push_back((nowSec() - startSec) * msPerSec);
                timer_ = main_.after(0, [this, step] { edit(step + 1); });
            };
            preview_.show(spec_, assetRoot_, plan_.room, {});
        });
    }

    // A device in space under a hand that turns it, where there is one.
    void drag() {
        const CompositionTimeline timeline(spec_);
        for (std::size_t i = 0; i < spec_.scenes.size(); ++i)
            for (std::size_t j = 0; j < spec_.scenes[i].layers.size(); ++j)
                if (const auto* device = std::get_if<DeviceContent>(&spec_.scenes[i].layers[j].content);
                    device && device->scene3D) {
                    const double untilSec = nowSec() + plan_.draggedSec;
                    return dragOn({i, j}, *device, timeline.startSec[i] + intoSceneSec, untilSec);
                }
        play();
    }

    void dragOn(
        const Composition3DRendererPool::Key& key, DeviceContent device, double atSec, double untilSec) {
        if (nowSec() >= untilSec) {
            report_.dragPicturesPerSec = double(dragged_) / plan_.draggedSec;
            preview_.onMaker([](PreviewMaker& maker) { maker.setLiveMode(false); });
            // As it was before.
            return preview_.show(
                spec_, assetRoot_, plan_.room, [this](const LivePreview::Ended&) { play(); });
        }
        device.scene3D->tiltDegrees.y += 1;
        preview_.onMaker([key, scene3D = *device.scene3D, placement = device.placement](PreviewMaker& maker) {
            maker.setLiveMode(true);
            maker.liveApply(key, scene3D, placement);
        });
        preview_.pictures()->requestLive(
            atSec, [this, key, device, atSec, untilSec](const StagePicture&, const FrameSource::Drawn&) {
                ++dragged_;
                dragOn(key, device, atSec, untilSec);
            });
    }

    void play() {
        preview_.player().seek(0, [this](bool) {
            preview_.player().clearCounts();
            preview_.player().play();
            timer_ = main_.after(plan_.mostPlayedSec, [this] {
                preview_.player().pause();
                endPlaying();
            });
        });
    }

    void endPlaying() {
        timer_.cancel();
        const Player::Counts& counts = preview_.player().counts();
        report_.playedSec = preview_.player().currentSec();
        if (report_.playedSec > 0) report_.picturesPerSec = double(counts.shown + 1) / report_.playedSec;
        report_.droppedShare = counts.droppedShare();
        report_.driftMs = counts.worstDriftSec * msPerSec;
        end();
    }

    CompositionSpec spec_;
    std::optional<std::filesystem::path> assetRoot_;
    RehearsalPlan plan_;
    RehearsalReport report_;
    std::optional<std::string> failure_;
    std::function<void()> onPicture_;
    int dragged_ = 0;

    // In the order in which they are needed: those below go first.
    system::EventLoop main_;
    system::WorkerPool workers_{1};
    system::WorkerThread render_, sound_;
    NullAudioOutput output_;
    LivePreview preview_;
    system::Timer timer_;
};

}   // namespace

double Latencies::percentile(double part) const {
    if (all.empty()) return 0;
    std::vector<double> sorted = all;
    std::ranges::sort(sorted);
    const auto index = std::size_t(std::max(std::ceil(part * double(sorted.size())) - 1, 0.0));
    return sorted[std::min(index, sorted.size() - 1)];
}

RehearsalReport rehearse(const CompositionSpec& spec, const std::optional<std::filesystem::path>& assetRoot,
    const RehearsalPlan& plan, const RenderLog& log) {
    RehearsalReport report = Rehearsal(spec, assetRoot, plan, log).run();
    report.layers = layerCosts(spec, assetRoot, plan.room, log);
    return report;
}

}   // namespace tavix
