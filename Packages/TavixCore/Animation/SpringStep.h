// One step of a damped spring towards a resting target, by the closed form of its motion: exact for any step
// length, so that a path does not depend on its frame rate.
#pragma once

namespace tavix {

// The spring that gives a device its weight.
struct TrajectorySpring {
    double responseSec;   // of one swing without damping; at least 0.001 counts
    double damping;       // counted within 0.2 to 1; from 0.999 on the spring does not swing
};

class SpringStep {
public:
    SpringStep(const TrajectorySpring& spring, double stepSec);

    void advance(double& position, double& velocityPerSec, double target) const;

private:
    bool isCritical() const;

    double frequency_, damping_, stepSec_;
    double dampedFrequency_ = 0, decay_ = 0, cosine_ = 0, sine_ = 0;
};

// How long a spring is given to settle after its last target.
double settlingSec(const TrajectorySpring& spring);

}   // namespace tavix
