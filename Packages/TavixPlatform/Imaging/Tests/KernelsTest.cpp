// Every instruction set gives the bits of the plainest one, at every length, and writes nothing past the end.
#include "TavixPlatform/Imaging/Kernels/Kernels.h"
#include "TavixPlatform/Imaging/Kernels/Families.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <hwy/targets.h>

namespace tavix::imaging {
namespace {

std::vector<Kernels> everyTable() {
    std::vector<Kernels> tables;
    const std::int64_t all = hwy::SupportedTargets();
    for (std::int64_t rest = all; rest != 0; rest &= rest - 1) {
        hwy::SetSupportedTargetsForTest(rest & -rest);
        hwy::GetChosenTarget().Update(hwy::SupportedTargets());
        tables.push_back(bestKernels());
    }
    hwy::SetSupportedTargetsForTest(0);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
    return tables;
}

constexpr std::size_t room = 160, guard = 0xABABABAB;

struct Rows {
    explicit Rows(unsigned seed) {
        std::mt19937 random(seed);
        for (std::vector<std::uint32_t>* row : {&a, &b, &c})
            for (std::uint32_t& p : *row) {
                const unsigned alpha = random() % 3 == 0 ? 255 : random() % 2 ? 0 : unsigned(random() % 256);
                p = alpha << 24;
                for (int shift : {0, 8, 16}) p |= std::uint32_t(random() % (alpha + 1)) << shift;
            }
        for (std::uint32_t& w : weights) w = std::uint32_t(random() % 256);
    }
    std::vector<std::uint32_t> a = std::vector<std::uint32_t>(room), b = a, c = a, weights = a;
};

using Result = std::vector<std::uint32_t>;

// BT.709 limited with chroma on the left; BT.601 full with chroma in the middle; whole chroma of deep films.
constexpr VideoRule videoRules[] = {
    {8, true, 3, 4, 2, 16 << 7, 9539, 14686, 1747, 4366, 17305},
    {8, true, 3, 3, 3, 0, 8192, 11485, 2819, 5850, 14516},
    {10, false, 4, 4, 2, 16 << 7, 9539, 14686, 1747, 4366, 17305},
    {12, true, 2, 4, 2, 16 << 7, 9539, 14686, 1747, 4366, 17305},
};

// Runs everything that writes 8-bit rows on one length; the parts of the result are the rows.
Result eightBitResults(const Kernels& k, const Rows& rows, std::size_t n) {
    Result all;
    const auto keep = [&](auto run) {
        std::vector<std::uint32_t> out = rows.c;
        std::fill(out.begin() + std::ptrdiff_t(n), out.end(), std::uint32_t(guard));
        run(out.data());
        for (std::size_t i = n; i < room; ++i) EXPECT_EQ(out[i], guard) << "wrote past the end at " << i - n;
        all.insert(all.end(), out.begin(), out.begin() + std::ptrdiff_t(n));
    };
    for (unsigned opacity : {0u, 1u, 77u, 254u, 255u}) {
        keep([&](std::uint32_t* out) { k.over(out, rows.a.data(), n, opacity); });
        keep([&](std::uint32_t* out) { k.fade(out, rows.a.data(), n, opacity); });
    }
    keep([&](std::uint32_t* out) { k.overSolid(out, rows.a[0], n); });
    keep([&](std::uint32_t* out) { k.add(out, rows.a.data(), n); });
    keep([&](std::uint32_t* out) { k.lighten(out, rows.a.data(), n); });
    keep([&](std::uint32_t* out) { k.atop(out, rows.a.data(), n); });
    keep([&](std::uint32_t* out) { k.mix(out, rows.a.data(), rows.b.data(), rows.weights.data(), n); });
    keep([&](std::uint32_t* out) { k.luminance(out, rows.a.data(), n); });
    const std::int64_t one = std::int64_t(1) << 32;
    for (const auto& [du, dv] : {std::pair{one, std::int64_t(0)}, {one * 2 / 3, one / 7}, {-one, one / 3}}) {
        const SampleLine line{
            reinterpret_cast<const std::uint8_t*>(rows.a.data()), 64, 16, 10, one / 3, one * 2, du, dv};
        keep([&](std::uint32_t* out) { k.sample(out, line, 3, n); });
        std::vector<float> u, v;
        for (std::size_t i = 0; i < room; ++i) {
            u.push_back(float(i) * 0.37f - 2);
            v.push_back(12 - float(i) * 0.2f);
        }
        keep([&](std::uint32_t* out) { k.sampleAt(out, line, u.data(), v.data(), n); });
        std::vector<float> projectedU(room * 2), projectedV(room * 2);
        k.project(projectedU.data(), projectedV.data(), {-3.1f, 0.21f, 9.7f, -0.13f, 1.1f, 0.003f}, 5, n);
        keep([&](std::uint32_t* out) { k.sampleAt(out, line, projectedU.data(), projectedV.data(), n); });
    }
    // Layers as they are drawn: turned a little, near their own size, some samples past every edge.
    std::vector<std::uint32_t> picture;
    for (int y = 0; y < 40; ++y) picture.insert(picture.end(), rows.a.begin() + y, rows.a.begin() + y + 96);
    for (const double step : {0.3, 0.87, 1.13, 1.9, -1.1})
        for (const double slope : {0.0, 0.06, -0.12, 0.4}) {
            const SampleLine line{reinterpret_cast<const std::uint8_t*>(picture.data()), 96 * 4, 96, 40,
                step < 0 ? 90 * one : -3 * one, 17 * one + one / 3, std::int64_t(step * double(one)),
                std::int64_t(slope * double(one))};
            keep([&](std::uint32_t* out) { k.sample(out, line, 1, n); });
        }
    std::vector<std::uint16_t> samples(room * 8);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = std::uint16_t(rows.a[i % room] >> (i / room)) & 0xFFF;
    for (const VideoRule& rule : videoRules) {
        const std::uint16_t* s = samples.data();
        const VideoRow row{n, s, {s + room, s + 2 * room}, {s + 3 * room, s + 4 * room}};
        keep([&](std::uint32_t* out) { k.videoToPixels(out, row, rule); });
    }
    keep([&](std::uint32_t* out) { k.premultiply(out, rows.b.data(), n); });
    return all;
}

// The same for float rows, read back through `pack`.
Result floatResults(const Kernels& k, const Rows& rows, std::size_t n) {
    std::vector<float> floats(room * 8), extra(room * 8), dither(room * 4, 0.25f);
    const auto planes = [](std::vector<float>& v) {
        return FloatRow{{v.data(), v.data() + room, v.data() + 2 * room, v.data() + 3 * room}};
    };
    Result all;
    const auto keep = [&](auto run) {
        k.unpack(planes(floats), rows.a.data(), n);
        k.unpack(planes(extra), rows.b.data(), n);
        run(planes(floats));
        std::vector<std::uint32_t> out(room, std::uint32_t(guard));
        k.pack(out.data(), planes(floats), dither.data(), n);
        for (std::size_t i = n; i < room; ++i) EXPECT_EQ(out[i], guard);
        all.insert(all.end(), out.begin(), out.begin() + std::ptrdiff_t(n));
    };
    keep([&](FloatRow r) { k.overFloat(r, planes(extra), n); });
    keep([&](FloatRow r) { k.gain(r, extra.data(), n); });
    keep([&](FloatRow r) { k.scaleAll(r, 0.7f, n); });
    keep([&](FloatRow r) {
        k.colorMatrix(r, {{0.5f, 0.2f, 0, 0.1f}, {0, 1.2f, 0, 0}, {1, 0, 0, 0}, {0.2f, 0, 0, 0.9f}}, n);
    });
    keep([&](FloatRow r) { k.colorControls(r, {0.1f, 1.7f, 0.4f}, n); });
    const float tint[3] = {0.9f, 0.3f, 0.6f};
    keep([&](FloatRow r) { k.monochrome(r, tint, 0.6f, n); });
    keep([&](FloatRow r) { k.falseColor(r, {{0.1f, 0.2f, 0.3f, 0.5f}, {1, 0.9f, 0.8f, 1}}, n); });
    keep([&](FloatRow r) { k.screen(r, planes(extra), 1.3f, n); });

    const auto keepInterleaved = [&](auto run) {
        k.expand(floats.data(), rows.a.data(), room / 2);
        std::fill(extra.begin(), extra.end(), 0.0f);
        run(extra.data());
        std::vector<std::uint32_t> out(room, std::uint32_t(guard));
        k.packInterleaved(out.data(), extra.data(), dither.data(), n / 4);
        all.insert(all.end(), out.begin(), out.begin() + std::ptrdiff_t(n / 4));
    };
    const float* taps[3] = {floats.data(), floats.data() + 4, floats.data() + 8};
    const float weights[4][4] = {
        {0.1f, 0.4f, 0.4f, 0.1f}, {0, 0.7f, 0.3f, 0}, {0.25f, 0.25f, 0.25f, 0.25f}, {1, 0, 0, 0}};
    keepInterleaved([&](float* out) { k.weightedSum(out, taps, weights[0], 3, n); });
    keepInterleaved([&](float* out) { k.halve(out, floats.data(), n / 8); });
    for (const int phases : {2, 4})
        keepInterleaved([&](float* out) { k.interpolate(out, floats.data(), weights, phases, 1, n / 4); });
    std::vector<int> first(room, 2);
    keepInterleaved(
        [&](float* out) { k.resample(out, floats.data(), first.data(), floats.data(), 3, n / 4); });
    return all;
}

TEST(Kernels, AgreeOnEveryInstructionSetAtEveryLength) {
    const std::vector<Kernels> tables = everyTable();
    ASSERT_GE(tables.size(), 1u);
    for (std::size_t n = 0; n <= 70; ++n) {
        const Rows rows{unsigned(n)};
        const Result bits = eightBitResults(tables.back(), rows, n),
                     values = floatResults(tables.back(), rows, n);
        for (std::size_t t = 0; t < tables.size(); ++t) {
            SCOPED_TRACE("table " + std::to_string(t) + ", length " + std::to_string(n));
            ASSERT_EQ(eightBitResults(tables[t], rows, n), bits);
            ASSERT_EQ(floatResults(tables[t], rows, n), values);
        }
    }
}

// One channel of one pixel in real numbers.
double exactVideo(const VideoRule& rule, const auto& chromaAt, double luma, std::size_t x, int channel) {
    const auto chroma = [&](int plane) {
        const double far = 4 - (x % 2 ? rule.oddWeight : rule.evenWeight);
        const std::ptrdiff_t here = std::ptrdiff_t(rule.halvesWidth ? x / 2 : x);
        const std::ptrdiff_t beside = rule.halvesWidth ? here + (x % 2 ? 1 : -1) : here;
        const double mixed = (chromaAt(plane, here) * (4 - far) + chromaAt(plane, beside) * far) / 4;
        return std::ldexp(mixed, 8 - rule.bits) - 128;
    };
    const double y = (std::ldexp(luma, 8 - rule.bits) - rule.black / 128.0) * rule.lumaGain;
    const double added[] = {chroma(0) * rule.blueOfCb,
        -chroma(0) * rule.greenOfCb - chroma(1) * rule.greenOfCr, chroma(1) * rule.redOfCr};
    return std::clamp((y + added[channel]) / 8192, 0.0, 255.0);
}

TEST(Kernels, TurnVideoIntoPixelsAsTheFormulaSays) {
    constexpr std::size_t width = 301;
    std::mt19937 random(7);
    for (const VideoRule& rule : videoRules) {
        SCOPED_TRACE(std::to_string(rule.bits) + " bits, black " + std::to_string(rule.black));
        std::vector<std::uint16_t> words(5 * width);
        for (std::uint16_t& w : words) w = std::uint16_t(random() % (1u << rule.bits));
        const std::vector<std::uint8_t> bytes(words.begin(), words.end());
        const auto rowAt = [&](std::size_t i) -> const void* {
            return rule.bits > 8 ? static_cast<const void*>(words.data() + i * width)
                                 : bytes.data() + i * width;
        };
        const VideoRow row{width, rowAt(0), {rowAt(1), rowAt(2)}, {rowAt(3), rowAt(4)}};
        const auto chromaAt = [&](int plane, std::ptrdiff_t i) {
            const auto last = std::ptrdiff_t(rule.halvesWidth ? (width + 1) / 2 : width) - 1;
            const auto at = std::size_t(std::clamp<std::ptrdiff_t>(i, 0, last));
            const auto p = std::size_t(plane);
            return (words[(1 + p) * width + at] * rule.nearWeight +
                       words[(3 + p) * width + at] * (4 - rule.nearWeight)) /
                   4.0;
        };
        std::vector<std::uint32_t> out(width);
        kernels().videoToPixels(out.data(), row, rule);
        for (std::size_t x = 0; x < width; ++x) {
            ASSERT_EQ(out[x] >> 24, 255u);
            for (int channel = 0; channel < 3; ++channel)
                ASSERT_NEAR(
                    out[x] >> (8 * channel) & 255, exactVideo(rule, chromaAt, words[x], x, channel), 0.6)
                    << "pixel " << x << ", channel " << channel;
        }
    }
}

TEST(Kernels, CompositeAsTheFormulaSays) {
    const Rows rows{99};
    for (unsigned opacity : {0u, 3u, 128u, 255u}) {
        std::vector<std::uint32_t> out = rows.c;
        kernels().over(out.data(), rows.a.data(), room, opacity);
        for (std::size_t i = 0; i < room; ++i)
            for (int shift : {0, 8, 16, 24}) {
                const auto rounded = [](unsigned product) { return (product + 127) / 255; };
                const unsigned s = rounded((rows.a[i] >> shift & 255) * opacity),
                               a = rounded((rows.a[i] >> 24) * opacity);
                const unsigned expected = s + rounded((rows.c[i] >> shift & 255) * (255 - a));
                ASSERT_EQ(out[i] >> shift & 255, expected) << i << " opacity " << opacity;
            }
    }
}

TEST(Kernels, SampleWithinAStepOfTheBilinearFormula) {
    const Rows rows{5};
    const SampleLine line{
        reinterpret_cast<const std::uint8_t*>(rows.a.data()), 64, 16, 10, 0, 0, 1234567890, 987654321};
    std::vector<std::uint32_t> out(80);
    kernels().sample(out.data(), line, 0, out.size());
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double u = double(i) * 1234567890 / 4294967296.0, v = double(i) * 987654321 / 4294967296.0;
        const auto at = [&](int x, int y, int c) {
            return double(
                rows.a[std::size_t(std::clamp(y, 0, 9) * 16 + std::clamp(x, 0, 15))] >> (8 * c) & 255);
        };
        const int x = int(std::floor(u)), y = int(std::floor(v));
        for (int c = 0; c < 4; ++c) {
            const double top = at(x, y, c) + (at(x + 1, y, c) - at(x, y, c)) * (u - x);
            const double below = at(x, y + 1, c) + (at(x + 1, y + 1, c) - at(x, y + 1, c)) * (u - x);
            EXPECT_NEAR(out[i] >> (8 * c) & 255, top + (below - top) * (v - y), 0.8) << i;
        }
    }
}

TEST(Kernels, SampleTheWholePixelsOfAWidePicture) {
    constexpr int width = 70, height = 9;
    std::vector<std::uint32_t> picture(std::size_t(width * height));
    for (std::size_t i = 0; i < picture.size(); ++i)
        picture[i] = 0xFF000000u | std::uint32_t(i * 2654435761u);
    const std::int64_t one = std::int64_t(1) << 32;
    const SampleLine line{
        reinterpret_cast<const std::uint8_t*>(picture.data()), width * 4, width, height, 0, 0, one, 0};
    for (int y = 0; y < height; ++y) {
        SampleLine row = line;
        row.v0 = y * one;
        std::vector<std::uint32_t> out(width);
        for (const std::int64_t tilt : {std::int64_t(0), std::int64_t(1)}) {   // the least that is no shift
            row.dv = tilt;
            kernels().sample(out.data(), row, 0, out.size());
            EXPECT_TRUE(std::equal(out.begin(), out.end(), picture.begin() + y * width)) << y << tilt;
        }
    }
}

TEST(Kernels, LayAtopOnlyWhereThereIsSomething) {
    for (const Kernels& k : everyTable()) {
        const Rows rows(3);
        std::vector<std::uint32_t> out = rows.b;
        k.atop(out.data(), rows.a.data(), room);
        for (std::size_t i = 0; i < room; ++i) {
            const std::uint32_t front = rows.a[i], back = rows.b[i];
            const auto at = [](std::uint32_t p, int c) { return double(p >> (8 * c) & 255); };
            ASSERT_EQ(out[i] >> 24, back >> 24);
            for (int c = 0; c < 3; ++c)
                ASSERT_NEAR(at(out[i], c),
                    at(front, c) * at(back, 3) / 255 + at(back, c) * (255 - at(front, 3)) / 255, 1.01);
        }
    }
}

TEST(Kernels, FindGradientsAndNeitherFlatsNorEdges) {
    std::mt19937 random(5);
    for (const Kernels& k : everyTable())
        for (int round = 0; round < 400; ++round) {
            constexpr int columns = 40;
            const int rowCount = 1 + int(random() % 8), most = 1 + int(random() % 40);
            const unsigned spread = unsigned(random() % 60) + 1;
            std::vector<std::uint32_t> pixels(columns * 8, 0xFF204060u);
            for (std::uint32_t& p : pixels)
                if (random() % 40 == 0) p += std::uint32_t(random() % spread) << (8 * (random() % 3));
            const std::uint32_t* rows[8];
            for (int y = 0; y < 8; ++y) rows[y] = pixels.data() + y * columns;
            std::uint8_t found[columns / 8 + 1] = {1, 1, 1, 1, 1, 1};
            k.findRamps(found, rows, rowCount, most, columns / 8);
            EXPECT_EQ(found[columns / 8], 1);
            for (int block = 0; block < columns / 8; ++block) {
                int largest = 0;
                for (int c = 0; c < 4; ++c) {
                    int low = 255, high = 0;
                    for (int i = 0; i < 8 * rowCount; ++i) {
                        const int v = int(rows[i / 8][block * 8 + i % 8] >> (8 * c) & 255);
                        low = std::min(low, v);
                        high = std::max(high, v);
                    }
                    largest = std::max(largest, high - low);
                }
                ASSERT_EQ(found[block] != 0, largest > 0 && largest <= most) << largest << " of " << most;
            }
        }
}

TEST(Kernels, RoundSamplesAsTheyAreTold) {
    for (const Kernels& k : everyTable())
        for (const std::size_t n : {2u, 32u, 62u, 256u, 300u}) {
            const std::vector<std::uint32_t> row(n, 0xFF7B3C21u);
            std::vector<std::uint8_t> rounding(n + 64);
            for (std::size_t i = 0; i < n; ++i) rounding[i] = std::uint8_t(i * 37);
            std::vector<std::uint8_t> luma0(n), luma1(n), cb(n / 2), cr(n / 2);
            k.toYuv420({luma0.data(), luma1.data(), cb.data(), cr.data()}, row.data(), row.data(), false,
                {rounding.data(), rounding.data(), rounding.data()}, n);
            const double exact = 0.2126 * 0x7B + 0.7152 * 0x3C + 0.0722 * 0x21, luma = 16 + exact * 219 / 255;
            const double blue = 128 + (0x21 - exact) / 1.8556 * 224 / 255;
            for (std::size_t i = 0; i < n; ++i) {
                ASSERT_EQ(luma0[i], luma1[i]);
                ASSERT_NEAR(luma0[i] + 0.5, luma + rounding[i] / 256.0, 0.53);
                ASSERT_NEAR(cb[i / 2] + 0.5, blue + rounding[i / 2] / 256.0, 0.53);
            }
        }
}

TEST(Kernels, ConvertToBt709WithinAStep) {
    for (const Kernels& k : everyTable()) {
        std::vector<std::uint32_t> rows[2];
        std::mt19937 random(1);
        for (auto& row : rows)
            for (int i = 0; i < 641; ++i) row.push_back(std::uint32_t(random()) | 0xFF000000u);
        for (const std::size_t n : {2u, 30u, 256u, 258u, 640u}) {
            std::vector<std::uint8_t> luma0(n + 1, 7), luma1 = luma0, cb(n / 2 + 1, 7), cr = cb;
            const std::vector<std::uint8_t> nearest(n + 64, 128);
            k.toYuv420({luma0.data(), luma1.data(), cb.data(), cr.data()}, rows[0].data() + 1,
                rows[1].data() + 1, true, {nearest.data(), nearest.data(), nearest.data()}, n);
            EXPECT_EQ(luma0[n] + luma1[n] + cb[n / 2] + cr[n / 2], 28);
            const auto color = [&](int row, std::size_t x, int c) {
                return double(rows[row][x + 1] >> (8 * c) & 255);
            };
            for (std::size_t x = 0; x < n; ++x) {
                const double y = 0.2126 * color(0, x, 2) + 0.7152 * color(0, x, 1) + 0.0722 * color(0, x, 0);
                ASSERT_NEAR(luma0[x], 16 + y * 219 / 255, 0.55);
                if (x % 2) continue;
                double mean[3];
                for (int c = 0; c < 3; ++c) {
                    mean[c] = 0;
                    for (int row : {0, 1})
                        mean[c] += (color(row, x - 1, c) + 2 * color(row, x, c) + color(row, x + 1, c)) / 8;
                }
                const double luma = 0.2126 * mean[2] + 0.7152 * mean[1] + 0.0722 * mean[0];
                ASSERT_NEAR(cb[x / 2], 128 + (mean[0] - luma) / 1.8556 * 224 / 255, 0.6);
                ASSERT_NEAR(cr[x / 2], 128 + (mean[2] - luma) / 1.5748 * 224 / 255, 0.6);
            }
        }
    }
}

}   // namespace
}   // namespace tavix::imaging
