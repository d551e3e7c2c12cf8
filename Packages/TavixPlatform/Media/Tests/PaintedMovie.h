// Movies of a pattern that is known for every sample, and how far what is read back lies from it.
#pragma once

#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixPlatform/Media/Tests/DecodedMovie.h"

#include <cmath>
#include <cstdlib>
#include <functional>

namespace tavix::media::tests {

using imaging::PlanarFormat;
using imaging::PlanarView;

struct CodecCase {
    MovieCodec codec;
    const char* name;
    unsigned tag;
    double meanErrorLimit;   // of a sample, in parts of full range
};
inline constexpr CodecCase codecCases[] = {
    {MovieCodec::h264, "h264", MKTAG('a', 'v', 'c', '1'), 0.01},
    {MovieCodec::hevc, "hevc", MKTAG('h', 'v', 'c', '1'), 0.01},
    {MovieCodec::proRes422HQ, "proRes422HQ", MKTAG('a', 'p', 'c', 'h'), 0.01},
    {MovieCodec::proRes4444, "proRes4444", MKTAG('a', 'p', '4', 'h'), 0.01},
    {MovieCodec::vp9, "vp9", MKTAG('v', 'p', '0', '9'), 0.01},
    {MovieCodec::av1, "av1", MKTAG('a', 'v', '0', '1'), 0.01},
};

struct Depth {
    int bytes, lowest, highest;
};
inline Depth depthOf(PlanarFormat format) {
    return format == PlanarFormat::yuv420p8 ? Depth{1, 16, 235} : Depth{2, 64, 940};
}

inline imaging::Size planeSize(const PlanarView& view, int plane) {
    const bool isChroma = plane == 1 || plane == 2;
    const int across = isChroma && view.format != PlanarFormat::yuva444p10 ? 2 : 1;
    const int down = isChroma && view.format == PlanarFormat::yuv420p8 ? 2 : 1;
    return {view.size.width / across, view.size.height / down};
}

inline int planeCount(PlanarFormat format) { return format == PlanarFormat::yuva444p10 ? 4 : 3; }

// A slope that moves from frame to frame and is another one in every plane.
inline int patternAt(PlanarFormat format, int plane, int x, int y, int frame) {
    const Depth depth = depthOf(format);
    const double wave = std::sin(x * 0.05 + y * 0.03 * (plane + 1) + frame * 0.2);
    return static_cast<int>(std::lround(depth.lowest + (depth.highest - depth.lowest) * (0.5 + 0.45 * wave)));
}

inline void forEachSample(
    const PlanarView& view, const std::function<void(int plane, int x, int y, std::uint8_t*)>& visit) {
    const int bytes = depthOf(view.format).bytes;
    for (int plane = 0; plane < planeCount(view.format); ++plane) {
        const imaging::Size size = planeSize(view, plane);
        for (int y = 0; y < size.height; ++y)
            for (int x = 0; x < size.width; ++x)
                visit(plane, x, y, view.planes[plane] + y * view.strideBytes[plane] + x * bytes);
    }
}

inline void put(PlanarFormat format, std::uint8_t* sample, int value) {
    sample[0] = static_cast<std::uint8_t>(value & 0xff);
    if (depthOf(format).bytes == 2) sample[1] = static_cast<std::uint8_t>(value >> 8);
}
inline int valueOf(PlanarFormat format, const std::uint8_t* sample) {
    return depthOf(format).bytes == 2 ? sample[0] | sample[1] << 8 : sample[0];
}

inline void paint(const PlanarView& view, int frame) {
    forEachSample(view, [&](int plane, int x, int y, std::uint8_t* sample) {
        put(view.format, sample, patternAt(view.format, plane, x, y, frame));
    });
}

inline MovieSettings settingsFor(const std::filesystem::path& path, MovieCodec codec) {
    MovieSettings settings;
    settings.path = path;
    settings.sizePx = {176, 144};
    settings.codec = codec;
    settings.bitsPerSec = 4'000'000;
    return settings;
}

inline void writeMovie(const MovieSettings& settings, int frames) {
    MovieWriter writer(settings);
    for (int i = 0; i < frames; ++i) {
        MovieWriter::Slot& slot = writer.acquire();
        paint(slot.planes, i);
        writer.submit(slot, i * settings.frameDuration);
    }
    writer.finish();
}

inline std::string failureOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const MediaError& error) {
        return error.what();
    }
    return "no failure";
}

// Mean distance between a decoded plane and the pattern, in parts of full range.
inline double meanError(const AVFrame& frame, PlanarFormat format, int plane, int frameIndex) {
    const bool isTwelveBit = frame.format == AV_PIX_FMT_YUVA444P12;   // what the decoder makes of 4444
    PlanarView view;
    view.format = format;
    view.size = {frame.width, frame.height};
    for (int i = 0; i < 4; ++i) {
        view.planes[i] = frame.data[i];
        view.strideBytes[i] = frame.linesize[i];
    }
    double sum = 0;
    int count = 0;
    forEachSample(view, [&](int at, int x, int y, std::uint8_t* sample) {
        if (at != plane) return;
        const int value = valueOf(format, sample) >> (isTwelveBit ? 2 : 0);
        sum += std::abs(value - patternAt(format, plane, x, y, frameIndex));
        ++count;
    });
    return sum / count / (depthOf(format).bytes == 2 ? 1023 : 255);
}

}   // namespace tavix::media::tests
