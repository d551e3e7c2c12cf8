#include "ManualStudio.h"

#include <cmath>

namespace tavix::testing {

FrameSource::Drawn FakeSource::draw(double atSec, FrameQuality quality) {
    draws.push_back({atSec, quality, time_.nowSec()});
    const double full = costAt ? costAt(atSec) : costSec_;
    const double cost = quality == FrameQuality::rough ? full / 2 : full;
    time_.spend(cost);
    auto pixels = std::make_shared<imaging::Bitmap>(imaging::Size{1, 1});
    pixels->view().row(0)[0] = static_cast<std::uint8_t>(number_);
    if (quality == FrameQuality::full && stored.size() < room) stored.insert(slotOf(atSec));
    return {pixels, cost, 0, false, isStored(atSec), quality != FrameQuality::full};
}

bool FakeSource::prepare(double) {
    if (leftToPrepare == 0) return false;
    --leftToPrepare;
    time_.spend(prepareSec);
    prepared.push_back(time_.nowSec());
    return true;
}

long FakeSource::slotOf(double atSec) { return std::lround(atSec * 30); }

int numberOf(const StagePicture& picture) { return picture.pixels->view().row(0)[0]; }

ManualStudio::ManualStudio(double totalSec, double costSec)
    : source(std::make_shared<FakeSource>(time, 1, totalSec, costSec)),
      chain(std::make_shared<RenderChain>(
          render, main, source, [this](const Finding& finding) { log.push_back(finding.message); })) {}

PlayerItem ManualStudio::item(double framesPerSec) {
    return {chain, std::nullopt, source->totalSec(), framesPerSec};
}

}   // namespace tavix::testing
