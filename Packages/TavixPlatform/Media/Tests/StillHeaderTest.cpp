// The heads of still images against the images themselves.
#include "TavixPlatform/Media/StillHeader.h"

#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/Media/Tests/StillFiles.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace tavix::media::tests {
namespace {

class StillHeaders : public ::testing::Test {
protected:
    std::filesystem::path written(const Bytes& bytes) {
        const std::filesystem::path file = folder_ / "image";
        std::ofstream(file, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
        return file;
    }
    std::string faultOf(const Bytes& bytes) {
        try {
            readStillHeader(written(bytes));
        } catch (const MediaError& error) {
            return error.what();
        }
        return "none";
    }

    testsupport::TemporaryFolder folder_;
};

bool isOpaque(const imaging::Bitmap& bitmap) {
    for (int y = 0; y < bitmap.size().height; ++y)
        for (int x = 0; x < bitmap.size().width; ++x)
            if (bitmap.view().row(y)[4 * x + 3] != 255) return false;
    return true;
}

// EXIF of one entry, which says how the camera was held.
Bytes exifOf(int orientation) {
    const unsigned char bytes[] = {'E', 'x', 'i', 'f', 0, 0, 'M', 'M', 0, 42, 0, 0, 0, 8, 0, 1, 0x01, 0x12, 0,
        3, 0, 0, 0, 1, 0, static_cast<unsigned char>(orientation), 0, 0, 0, 0, 0, 0};
    const auto* data = reinterpret_cast<const std::byte*>(bytes);
    return {data, data + sizeof bytes};
}

TEST_F(StillHeaders, TellTheSizeAndWhetherOneSeesThroughIt) {
    const Picture plain = slope(37, 23, false), holed = slope(37, 23, true);
    std::vector<Bytes> files;
    for (const int colorType : {0, 2, 3, 4, 6})
        for (const Picture* picture : {&plain, &holed})
            for (const bool isInterlaced : {false, true})
                files.push_back(
                    makePng(*picture, {.colorType = colorType, .depth = 8, .isInterlaced = isInterlaced}));
    for (const auto color : {JpegKind::Color::ycc, JpegKind::Color::grey, JpegKind::Color::cmyk})
        for (const bool isProgressive : {false, true})
            files.push_back(makeJpeg(plain, {.color = color, .isProgressive = isProgressive}));
    for (int orientation = 1; orientation <= 8; ++orientation)
        files.push_back(makeJpeg(plain, {.exif = exifOf(orientation)}));
    for (const Picture* picture : {&plain, &holed})
        for (const bool isLossless : {false, true}) {
            files.push_back(makeWebp(*picture, {.isLossless = isLossless}));
            files.push_back(makeWebp(*picture, {.isLossless = isLossless, .exif = exifOf(6)}));
        }
    for (std::size_t i = 0; i < files.size(); ++i) {
        SCOPED_TRACE("file " + std::to_string(i));
        const std::filesystem::path file = written(files[i]);
        const StillHeader header = readStillHeader(file);
        const imaging::Bitmap image = loadStillImage(file);
        EXPECT_EQ(header.size, image.size());
        EXPECT_TRUE(!header.isOpaque || isOpaque(image)) << "what is said to be opaque is";
    }
    EXPECT_TRUE(readStillHeader(written(makePng(plain, {.colorType = 2, .depth = 8}))).isOpaque);
    EXPECT_TRUE(readStillHeader(written(makeJpeg(plain, {}))).isOpaque);
}

TEST_F(StillHeaders, SayWhyThereIsNone) {
    const Bytes png = makePng(slope(9, 9, false), {.colorType = 2, .depth = 8});
    EXPECT_THAT(faultOf({}), testing::HasSubstr("It is not a PNG"));
    EXPECT_THAT(faultOf(Bytes(png.begin(), png.begin() + 20)), testing::HasSubstr("ends early"));
    Bytes huge = png;
    for (std::size_t i = 16; i < 24; ++i) huge[i] = std::byte{0x7f};
    EXPECT_THAT(faultOf(huge), testing::HasSubstr("size"));
    EXPECT_THROW(readStillHeader(folder_ / "gone.png"), MediaError);
    EXPECT_THROW(readStillHeader(folder_.path()), MediaError);
}

TEST_F(StillHeaders, EndForEveryCutAndEveryFlippedByte) {
    const Picture picture = slope(9, 9, true);
    for (const Bytes& file : {makePng(picture, {.colorType = 6, .depth = 8}),
             makeJpeg(picture, {.exif = exifOf(6)}), makeWebp(picture, {.exif = exifOf(3)})})
        for (std::size_t at = 0; at < std::min<std::size_t>(file.size(), 120); ++at) {
            faultOf(Bytes(file.begin(), file.begin() + std::ptrdiff_t(at)));
            Bytes flipped = file;
            flipped[at] ^= std::byte{0xff};
            faultOf(flipped);
        }
}

}   // namespace
}   // namespace tavix::media::tests
