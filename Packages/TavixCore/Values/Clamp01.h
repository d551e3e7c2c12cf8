// The clamp of every fraction. What is not a number counts as 0.
#pragma once

namespace tavix::KineticMath {

constexpr double clamp01(double x) { return x > 0 ? (x < 1 ? x : 1) : 0; }

}   // namespace tavix::KineticMath
