#include "Backgrounds/JpegFile.h"

#include <cstdio>
#include <stdexcept>

#include <jpeglib.h>

namespace tavix::backgrounds {

namespace {

constexpr int qualityPercent = 95;

void compress(const Picture& picture, std::FILE* file) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    jpeg_stdio_dest(&jpeg, file);
    jpeg.image_width = jpeg.image_height = static_cast<JDIMENSION>(picture.sidePx);
    jpeg.input_components = 3;
    jpeg.in_color_space = JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, qualityPercent, TRUE);
    for (int i = 0; i < jpeg.num_components; ++i)
        jpeg.comp_info[i].h_samp_factor = jpeg.comp_info[i].v_samp_factor = 1;
    jpeg_start_compress(&jpeg, TRUE);
    const auto rowBytes = static_cast<std::size_t>(picture.sidePx) * 3;
    while (jpeg.next_scanline < jpeg.image_height) {
        // libjpeg reads its rows through a pointer that is not const.
        JSAMPROW row = const_cast<JSAMPROW>(picture.bytes.data() + jpeg.next_scanline * rowBytes);
        jpeg_write_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
}

}   // namespace

void writeJpeg(const Picture& picture, const std::filesystem::path& target) {
    std::filesystem::path unfinished = target;
    unfinished += ".part";
    std::FILE* file = std::fopen(unfinished.c_str(), "wb");
    if (!file) throw std::runtime_error("\"" + unfinished.string() + "\" cannot be written.");
    compress(picture, file);
    if (std::fclose(file) != 0)
        throw std::runtime_error("\"" + unfinished.string() + "\" could not be finished.");
    std::filesystem::rename(unfinished, target);
}

}   // namespace tavix::backgrounds
