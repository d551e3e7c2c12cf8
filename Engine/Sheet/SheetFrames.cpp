#include "Engine/Sheet/SheetFrames.h"

#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"
#include "TavixRender/Export/ExportGeometry.h"
#include "TavixRender/Export/MachineShare.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>

namespace tavix::engine {

namespace {

using imaging::Bitmap;
using imaging::Image;

constexpr int mostWorkers = 8;   // each has the document made ready for itself

struct Task {
    const CompositionSpec& spec;   // of the size in which it is drawn
    const std::optional<std::filesystem::path>& assetRoot;
    const std::vector<SheetMoment>& moments;
    imaging::Size sizePx;
    RenderLog log;
    std::vector<Bitmap>& frames;
    std::atomic<std::size_t> done = 0;
    std::atomic<bool> mustStop = false;
};

// Moments first ... end - 1: neighbours, so that films are decoded in their order.
void drawSome(
    Task& task, std::size_t first, std::size_t end, const std::function<void(std::size_t)>& onFrame) {
    imaging::Evaluator evaluator({.threadCount = 1});
    Composition3DRendererPool stages;
    ResolvedComposition resolved(task.spec, task.assetRoot, evaluator, task.log, &stages);
    const imaging::Size drawnPx = canvasSize(task.spec);
    const imaging::PixelRegion all{0, 0, drawnPx.width, drawnPx.height};
    const imaging::PixelRegion small{0, 0, task.sizePx.width, task.sizePx.height};
    for (std::size_t i = first; i < end && !task.mustStop; ++i) {
        const double atSec = task.spec.output.fps.secAt(task.moments[i].frame);
        const auto drawn = std::make_shared<const Bitmap>(evaluator.draw(resolved.frame(atSec), all));
        task.frames[i] = evaluator.draw(Image::bitmap(drawn).placedInto(small.rect()), small);
        ++task.done;
        if (onFrame) onFrame(task.done);
    }
}

}   // namespace

std::vector<Bitmap> sheetFrames(const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot, const std::vector<SheetMoment>& moments,
    imaging::Size sizePx, const RenderLog& log, const std::function<void(std::size_t done)>& onFrame) {
    const imaging::Size full = canvasSize(spec);
    const imaging::Size drawnPx{
        std::min(2 * sizePx.width, full.width), std::min(2 * sizePx.height, full.height)};
    const CompositionSpec scaled = scaledExportSpec(spec, drawnPx, spec.output.fps);
    std::vector<Bitmap> frames(moments.size());
    std::mutex telling;
    const RenderLog told = onceEach(log);
    Task task{scaled, assetRoot, moments, sizePx,
        [&](const Finding& finding) {
            const std::lock_guard lock(telling);
            tell(told, finding);
        },
        frames};
    const std::size_t workers =
        std::clamp<std::size_t>(moments.size(), 1, std::size_t(std::min(MachineShare::cores(), mostWorkers)));
    const auto firstOf = [&](std::size_t worker) { return moments.size() * worker / workers; };
    std::exception_ptr failure;
    const auto guarded = [&](const auto& work) {
        try {
            work();
        } catch (...) {
            const std::lock_guard lock(telling);
            if (!failure) failure = std::current_exception();
            task.mustStop = true;
        }
    };
    std::vector<std::thread> others;
    for (std::size_t worker = 1; worker < workers; ++worker)
        others.emplace_back([&, worker, stop = imaging::StopScope::current()] {
            const imaging::StopScope scope(stop);
            guarded([&] { drawSome(task, firstOf(worker), firstOf(worker + 1), {}); });
        });
    guarded([&] { drawSome(task, 0, firstOf(1), onFrame); });
    for (std::thread& other : others) other.join();
    if (failure) std::rethrow_exception(failure);
    return frames;
}

}   // namespace tavix::engine
