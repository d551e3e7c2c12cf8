// How loud a mix is, as listeners hear it: ITU-R BS.1770-4, which EBU R 128 goes by.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace tavix {

struct LoudnessMeasure {
    std::optional<double> integratedLufs;   // nothing for what is too short or too quiet to be heard
    double truePeakDb = 0;                  // of full scale, between samples too; -infinity for silence
    std::int64_t clippedSamples = 0;        // at or past full scale
};

// Takes a sound block by block; memory does not depend on its length, but for four bytes every 100 ms.
class LoudnessMeter {
public:
    // One or two channels, each of the same weight.
    LoudnessMeter(double sampleRateHz, int channels);
    ~LoudnessMeter();
    LoudnessMeter(const LoudnessMeter&) = delete;
    LoudnessMeter& operator=(const LoudnessMeter&) = delete;

    void take(std::span<const float> interleaved);
    LoudnessMeasure measure() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}   // namespace tavix
