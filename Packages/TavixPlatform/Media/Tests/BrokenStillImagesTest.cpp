#include "TavixPlatform/Media/StillImages.h"

#include "TavixPlatform/Media/Tests/DecodedMovie.h"
#include "TavixPlatform/Media/Tests/StillFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <png.h>

extern "C" {
#include <libavutil/crc.h>
}

#include <functional>
#include <map>
#include <sys/resource.h>

namespace tavix::media::tests {
namespace {

std::string failureOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const MediaError& error) {
        return error.what();
    }
    return "no failure";
}

// Every kind of file that is read, of one picture with alpha where the format has it.
std::map<std::string, Bytes> everyKind() {
    const Picture opaque = slope(37, 21, false), translucent = slope(37, 21, true);
    std::map<std::string, Bytes> files{
        {"png", makePng(translucent, {PNG_COLOR_TYPE_RGB_ALPHA, 8, false, displayP3Profile()})},
        {"png16", makePng(translucent, {PNG_COLOR_TYPE_RGB_ALPHA, 16, true})},
        {"jpeg", makeJpeg(opaque, {.exif = exifWithOrientation(6, true), .profile = displayP3Profile()})},
        {"progressive", makeJpeg(opaque, {.isProgressive = true})},
        {"webp",
            makeWebp(translucent, {.exif = exifWithOrientation(8, false), .profile = displayP3Profile()})},
        {"lossy webp", makeWebp(opaque, {.isLossless = false})},
        {"animated webp", makeAnimatedWebp(translucent)},
    };
    for (const bool isAvif : {false, true})
        if (const auto file = makeHeif(translucent, {.isAvif = isAvif}))
            files[isAvif ? "avif" : "heic"] = *file;
    return files;
}

TEST(BrokenStillImages, GivesAReasonForEveryTruncation) {
    for (const auto& [kind, file] : everyKind()) {
        SCOPED_TRACE(kind);
        for (std::size_t size = 0; size < file.size(); size += 1 + size / 40) {
            Bytes cut(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));   // its own heap block
            try {
                decodeStillImage(cut);
            } catch (const MediaError& error) {
                EXPECT_THAT(error.what(), testing::EndsWith("."));
            }
        }
        const Bytes half(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(file.size() / 2));
        EXPECT_NE(failureOf([&] { decodeStillImage(half); }), "no failure");
    }
}

TEST(BrokenStillImages, SurvivesFlippedBytes) {
    for (const auto& [kind, file] : everyKind()) {
        SCOPED_TRACE(kind);
        for (std::size_t at = 0; at < file.size(); at += 1 + file.size() / 150) {
            Bytes broken = file;
            broken[at] ^= std::byte{0xa5};
            try {
                decodeStillImage(broken);
            } catch (const MediaError&) {}
        }
    }
}

TEST(BrokenStillImages, RefusesWhatClaimsTooMuch) {
    Bytes png = makePng(filled(8, 8, 1, 2, 3), {PNG_COLOR_TYPE_RGB, 8});
    const auto claim = [&](std::size_t at, unsigned size) {
        for (std::size_t i = 0; i < 4; ++i) png[at + i] = static_cast<std::byte>(size >> (8 * (3 - i)) & 255);
        const unsigned check =
            ~av_crc(av_crc_get_table(AV_CRC_32_IEEE_LE), ~0U, reinterpret_cast<std::uint8_t*>(&png[12]), 17);
        for (std::size_t i = 0; i < 4; ++i)
            png[29 + i] = static_cast<std::byte>(check >> (8 * (3 - i)) & 255);
    };
    claim(16, 20000);
    claim(20, 10000);
    EXPECT_EQ(failureOf([&] { decodeStillImage(png); }),
        "The image is damaged: it claims 20000 by 10000 pixels but is too short to hold them.");
    claim(20, 20000);
    EXPECT_THAT(failureOf([&] { decodeStillImage(png); }), testing::HasSubstr("which is too large"));
}

// The size of a chunk is only claimed, and memory for it is taken before the file turns out to be short.
TEST(BrokenStillImages, TakesNoMemoryForWhatAChunkClaims) {
    const tests::Bytes png = makePng(slope(8, 8, false), {PNG_COLOR_TYPE_RGB, 8});
    constexpr std::size_t headBytes = 8 + 25;   // the mark and IHDR
    const auto peakMB = [] {
        rusage usage{};
        ::getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss >> 10;
    };
    const long before = peakMB();
    for (const std::string type : {"tEXt", "zTXt", "iTXt", "iCCP", "eXIf", "sPLT", "pCAL", "abCd"}) {
        std::string chunk = "\x7f\xff\xff\xff" + type + "name";
        chunk.resize(200);
        tests::Bytes claiming = png;
        const auto* bytes = reinterpret_cast<const std::byte*>(chunk.data());
        claiming.insert(claiming.begin() + headBytes, bytes, bytes + chunk.size());
        EXPECT_THAT(
            failureOf([&] { decodeStillImage(claiming); }), testing::StartsWith("The PNG image is damaged"))
            << type;
        EXPECT_LT(peakMB() - before, 200) << type;
    }
}

TEST(BrokenStillImages, SaysWhyAFileCannotBeRead) {
    const TemporaryFolder folder;
    std::ofstream(folder / "text.png") << "hello";
    std::ofstream(folder / "empty.png") << "";
    const auto sentence = [](const std::filesystem::path& path, const char* why) {
        return "Cannot read the image \"" + path.string() + "\". " + why;
    };
    const struct {
        std::filesystem::path path;
        const char* why;
    } cases[] = {
        {folder / "absent.png", "There is no such file."},
        {folder / "text.png", "It is not a PNG, JPEG, WebP, HEIC or AVIF image."},
        {folder / "empty.png", "It is not a PNG, JPEG, WebP, HEIC or AVIF image."},
        {folder / "", "It is not a file."},
        {"/dev/zero", "It is not a file."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(failureOf([&] { loadStillImage(c.path); }), sentence(c.path, c.why));
}

TEST(BrokenStillImages, SaysWhyAPngCannotBeWritten) {
    const TemporaryFolder folder;
    const imaging::Bitmap bitmap({800, 600});
    EXPECT_EQ(failureOf([&] { writePng("/dev/full", bitmap.view()); }),
        "Cannot write the image \"/dev/full\": No space left on device.");
    EXPECT_EQ(failureOf([&] { writePng(folder / "absent/a.png", bitmap.view()); }),
        "Cannot write the image \"" + (folder / "absent/a.png").string() + "\": No such file or directory.");
}

}   // namespace
}   // namespace tavix::media::tests
