// A film in virtual time: pictures that take as long to draw as the test says.
#pragma once

#include "TavixLive/Playback/Player.h"
#include "TavixPlatform/System/ManualTime.h"

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace tavix::testing {

// Its pictures are of one pixel, whose blue is the number of the source.
class FakeSource : public FrameSource {
public:
    struct Draw {
        double atSec;
        FrameQuality quality;
        double startSec;   // in virtual time
    };

    FakeSource(system::ManualTime& time, int number, double totalSec, double costSec)
        : time_(time), number_(number), totalSec_(totalSec), costSec_(costSec) {}

    Drawn draw(double atSec, FrameQuality quality) override;
    bool isStored(double atSec) const override { return stored.contains(slotOf(atSec)); }
    bool hasRoom() const override { return stored.size() < room; }
    bool prepare(double nearSec) override;
    void rest() override { rests.push_back(draws.size()); }
    double totalSec() const override { return totalSec_; }
    bool hasDevicesInSpace() const override { return isInSpace; }

    static constexpr double prepareSec = 0.1;

    static long slotOf(double atSec);   // at 30 a second
    bool isInSpace = false;
    std::set<long> stored;   // slots, of full quality
    std::size_t room = 0;    // frames; nothing is stored without
    std::vector<Draw> draws;
    std::function<double(double atSec)> costAt;   // in place of the one cost
    int leftToPrepare = 0;
    std::vector<double> prepared;     // where, in virtual time
    std::vector<std::size_t> rests;   // after how many pictures

private:
    system::ManualTime& time_;
    int number_;
    double totalSec_, costSec_;
};

int numberOf(const StagePicture& picture);   // of its source

// Executors, and a player of a film of such pictures.
struct ManualStudio {
    explicit ManualStudio(double totalSec = 2, double costSec = 0.005);

    PlayerItem item(double framesPerSec = 30);
    struct Shown {
        double atSec;    // whose frame
        double nowSec;   // when
        int number;
    };

    system::ManualTime time;
    system::ManualExecutor main{time}, render{time}, sound{time};
    std::shared_ptr<FakeSource> source;
    std::vector<std::string> log;
    std::shared_ptr<RenderChain> chain;
    std::vector<Shown> shown;
};

}   // namespace tavix::testing
