#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixPlatform/Media/Orientation.h"
#include "TavixPlatform/Media/StillAssembly.h"
#include "TavixPlatform/Media/StillReaders.h"

#include <cstddef>
#include <cstdio>

#include <jpeglib.h>

#include <jerror.h>

#include <array>
#include <csetjmp>
#include <cstdlib>
#include <memory>

namespace tavix::media {
namespace {

constexpr int exifMarker = JPEG_APP0 + 1, profileMarker = JPEG_APP0 + 2;
constexpr unsigned longestMarkerBytes = 0xffff;
constexpr int maxScans = 200;                // a progressive file of many scans is made to keep readers busy
constexpr std::size_t pixelsPerByte = 512;   // a block of 64 pixels takes a bit at the least

struct Errors {
    jpeg_error_mgr manager;   // first: the library hands its address back
    std::jmp_buf way;
    std::array<char, JMSG_LENGTH_MAX> fault;
};

[[noreturn]] void fail(j_common_ptr codec) {
    auto& errors = *reinterpret_cast<Errors*>(codec->err);
    codec->err->format_message(codec, errors.fault.data());
    std::longjmp(errors.way, 1);
}

// A file that ends early would be filled up with grey.
void heed(j_common_ptr codec, int level) {
    if (level < 0 && codec->err->msg_code == JWRN_JPEG_EOF) fail(codec);
}

struct Progress {
    jpeg_progress_mgr manager;
    static void look(j_common_ptr codec) {
        const auto* decoder = reinterpret_cast<j_decompress_ptr>(codec);
        if (decoder->input_scan_number > maxScans) ERREXIT(codec, JERR_BAD_PROGRESSION);
    }
};

class JpegReader {
public:
    explicit JpegReader(std::span<const std::byte> file) : file_(file) {
        decoder_.err = jpeg_std_error(&errors_.manager);
        errors_.manager.error_exit = fail;
        errors_.manager.emit_message = heed;
        guarded([this] { jpeg_create_decompress(&decoder_); });
        progress_.manager.progress_monitor = Progress::look;
        decoder_.progress = &progress_.manager;
    }
    ~JpegReader() { jpeg_destroy_decompress(&decoder_); }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    imaging::Bitmap read() {
        guarded([this] { readHead(); });
        refuseStillSize(decoder_.image_width, decoder_.image_height, file_.size(),
            decoder_.arith_code ? 0 : pixelsPerByte);
        const bool isInk = decoder_.num_components == 4;
        const PixelLayout layout = isInk ? PixelLayout::cmyk8 : PixelLayout::rgba8;
        const imaging::Size size{
            static_cast<int>(decoder_.image_width), static_cast<int>(decoder_.image_height)};
        ColorConversion toSrgb = conversion(layout);
        if (!isInk && toSrgb.isNone()) return upright(readPlain(size), orientation());
        StillAssembly assembly(size, layout, std::move(toSrgb));
        decoder_.out_color_space = isInk ? JCS_CMYK : JCS_EXT_RGBA;
        guarded([this] { jpeg_start_decompress(&decoder_); });
        std::vector<std::uint8_t> row(static_cast<std::size_t>(decoder_.output_width) * 4);
        for (int y = 0; y < static_cast<int>(decoder_.output_height); ++y) {
            readRow(row);
            assembly.put(y, row.data());
        }
        return upright(assembly.take(), orientation());
    }

private:
    // Runs calls of libjpeg, whose way out of an error is a long jump: a step may own nothing.
    template <class Step> void guarded(Step step) {
        if (setjmp(errors_.way))
            throw MediaError(std::string("The JPEG image is damaged: ") + errors_.fault.data() + ".");
        step();
    }

    void readHead() {
        jpeg_mem_src(&decoder_, reinterpret_cast<const unsigned char*>(file_.data()), file_.size());
        jpeg_save_markers(&decoder_, exifMarker, longestMarkerBytes);
        jpeg_save_markers(&decoder_, profileMarker, longestMarkerBytes);
        jpeg_read_header(&decoder_, TRUE);
    }

    // Pixels that are what they are to be as the library hands them out.
    imaging::Bitmap readPlain(imaging::Size size) {
        imaging::Bitmap bitmap = imaging::Bitmap::uninitialised(size);
        decoder_.out_color_space = JCS_EXT_BGRA;
        guarded([this] { jpeg_start_decompress(&decoder_); });
        for (int y = 0; y < size.height; ++y) {
            imaging::checkStop();
            JSAMPROW rows[1] = {bitmap.view().row(y)};
            guarded([&] { jpeg_read_scanlines(&decoder_, rows, 1); });
        }
        bitmap.declareOpaque();
        return bitmap;
    }

    void readRow(std::vector<std::uint8_t>& row) {
        JSAMPROW rows[1] = {row.data()};
        guarded([&] { jpeg_read_scanlines(&decoder_, rows, 1); });
        if (decoder_.out_color_space != JCS_CMYK || !decoder_.saw_Adobe_marker) return;
        for (std::uint8_t& ink : row)
            ink = static_cast<std::uint8_t>(255 - ink);   // Adobe writes 0 for full ink
    }

    ColorConversion conversion(PixelLayout layout) {
        JOCTET* bytes = nullptr;
        unsigned size = 0;
        guarded([&] { jpeg_read_icc_profile(&decoder_, &bytes, &size); });
        const std::unique_ptr<JOCTET, decltype(&std::free)> owner(bytes, &std::free);
        return ColorConversion::fromProfile(std::as_bytes(std::span(bytes, size)), layout);
    }

    int orientation() const {
        for (auto* marker = decoder_.marker_list; marker; marker = marker->next)
            if (marker->marker == exifMarker)
                return exifOrientation(std::as_bytes(std::span(marker->data, marker->data_length)));
        return 1;
    }

    std::span<const std::byte> file_;
    Errors errors_{};
    Progress progress_{};
    jpeg_decompress_struct decoder_{};
};

}   // namespace

imaging::Bitmap readJpeg(std::span<const std::byte> file) { return JpegReader(file).read(); }

}   // namespace tavix::media
