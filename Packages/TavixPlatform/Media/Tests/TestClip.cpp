#include "TestClip.h"

#include "TavixPlatform/Imaging/Evaluator.h"

extern "C" {
#include <libavutil/display.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>

namespace tavix::media::tests {
namespace {

constexpr int cellPx = 16, cellsAcross = 4, cells = 16;

void put(AVFrame& frame, int plane, int x, int y, int value) {
    const AVPixFmtDescriptor* kind = av_pix_fmt_desc_get(AVPixelFormat(frame.format));
    std::uint8_t* row = frame.data[plane] + std::ptrdiff_t{y} * frame.linesize[plane];
    if (kind->comp[0].depth > 8)
        reinterpret_cast<std::uint16_t*>(row)[x] = std::uint16_t(value << (kind->comp[0].depth - 8));
    else
        row[x] = std::uint8_t(value);
}

// Twelve bits of the number; the other squares are black, white, black, white, so that noise is no number.
bool isWhite(int number, int cell) { return cell < 12 ? (number >> cell & 1) != 0 : cell % 2 != 0; }

void paintNumber(AVFrame& frame, int number) {
    const AVPixFmtDescriptor* kind = av_pix_fmt_desc_get(AVPixelFormat(frame.format));
    for (int plane = 1; plane < kind->nb_components; ++plane) fillPlane(frame, plane, plane == 3 ? 255 : 128);
    fillPlane(frame, 0, 100);
    for (int y = 0; y < std::min(frame.height, cellPx * cellsAcross); ++y)
        for (int x = 0; x < std::min(frame.width, cellPx * cellsAcross); ++x)
            put(frame, 0, x, y, isWhite(number, y / cellPx * cellsAcross + x / cellPx) ? 220 : 30);
}

// A square part of an image, counted from its top left.
imaging::Bitmap drawn(const imaging::Image& image, int x, int fromTop, int sidePx) {
    static imaging::Evaluator evaluator;
    const imaging::PixelRegion all = imaging::pixelsCovering(image.extent());
    const int left = all.x0 + x, top = all.y1 - fromTop;
    return evaluator.draw(image, {left, top - sidePx, left + sidePx, top});
}

Rgba rgbaAt(const imaging::Bitmap& bitmap, int x, int y) {
    const std::uint8_t* p = bitmap.view().row(y) + std::ptrdiff_t{x} * 4;
    return {p[2], p[1], p[0], p[3]};
}

class ClipMaker {
public:
    explicit ClipMaker(const ClipRecipe& recipe) : recipe_(recipe) {
        const AVCodec* codec = avcodec_find_encoder_by_name(recipe.encoder);
        AVFormatContext* made = nullptr;
        check(avformat_alloc_output_context2(&made, nullptr, nullptr, recipe.path.c_str()));
        format_.reset(made);
        made->flags |= AVFMT_FLAG_BITEXACT;   // the same bytes each time, so that a hole in them is the same
        encoder_ = libav::owned<libav::CodecContext>(avcodec_alloc_context3(codec));
        openEncoder(*codec);
        stream_ = avformat_new_stream(made, nullptr);
        stream_->time_base = recipe.tick;
        stream_->sample_aspect_ratio = recipe.pixelAspect;
        check(avcodec_parameters_from_context(stream_->codecpar, encoder_.get()));
        if (recipe.clockwiseDeg != 0) {
            auto* matrix = reinterpret_cast<std::int32_t*>(
                av_stream_new_side_data(stream_, AV_PKT_DATA_DISPLAYMATRIX, 9 * sizeof(std::int32_t)));
            av_display_rotation_set(matrix, recipe.clockwiseDeg);
        }
        if (recipe.pixels == AV_PIX_FMT_YUVA420P) av_dict_set(&stream_->metadata, "alpha_mode", "1", 0);
        if (recipe.times.front() < 0) made->avoid_negative_ts = 0;   // the container cuts what lies before 0
        check(avio_open(&made->pb, recipe.path.c_str(), AVIO_FLAG_WRITE));
        check(avformat_write_header(made, nullptr));
    }

    void run() {
        for (std::size_t i = 0; i < recipe_.times.size(); ++i) {
            auto frame = libav::owned<libav::Frame>(av_frame_alloc());
            frame->format = recipe_.pixels;
            frame->width = recipe_.size.width;
            frame->height = recipe_.size.height;
            check(av_frame_get_buffer(frame.get(), 0));
            recipe_.paint ? recipe_.paint(*frame, int(i)) : paintNumber(*frame, int(i));
            frame->pts = recipe_.times[i];
            encode(frame.get());
        }
        encode(nullptr);
        check(av_write_trailer(format_.get()));
        check(avio_closep(&format_->pb));
    }

private:
    void check(int code) const { libav::check(code, errors_, "Cannot make " + recipe_.path.string()); }

    void openEncoder(const AVCodec& codec) {
        encoder_->width = recipe_.size.width;
        encoder_->height = recipe_.size.height;
        encoder_->pix_fmt = recipe_.pixels;
        encoder_->time_base = recipe_.tick;
        encoder_->sample_aspect_ratio = recipe_.pixelAspect;
        encoder_->colorspace = recipe_.matrix;
        encoder_->color_range = recipe_.range;
        encoder_->chroma_sample_location = recipe_.chroma;
        encoder_->gop_size = recipe_.gop;
        const bool mayReorder = avcodec_descriptor_get(codec.id)->props & AV_CODEC_PROP_REORDER;
        encoder_->max_b_frames = mayReorder ? recipe_.bFrames : 0;
        encoder_->thread_count = 1;
        encoder_->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
        libav::Options options;
        for (const auto& [name, value] : recipe_.options) options.set(name, value);
        check(avcodec_open2(encoder_.get(), &codec, options.get()));
    }

    void encode(const AVFrame* frame) {
        check(avcodec_send_frame(encoder_.get(), frame));
        const auto packet = libav::owned<libav::Packet>(av_packet_alloc());
        while (avcodec_receive_packet(encoder_.get(), packet.get()) >= 0) {
            packet->stream_index = stream_->index;
            // Without it the last frame would last for no time, and edit lists would leave it out.
            if (packet->duration == 0)
                packet->duration = std::max(1, recipe_.tick.den / recipe_.tick.num / 30);
            av_packet_rescale_ts(packet.get(), recipe_.tick, stream_->time_base);
            check(av_interleaved_write_frame(format_.get(), packet.get()));
        }
    }

    const ClipRecipe& recipe_;
    libav::ErrorScope errors_;
    libav::FormatContext format_;
    libav::CodecContext encoder_;
    AVStream* stream_ = nullptr;
};

}   // namespace

void makeClip(const ClipRecipe& recipe) { ClipMaker(recipe).run(); }

std::vector<std::int64_t> evenTimes(int count, int ticksPerFrame) {
    std::vector<std::int64_t> times;
    for (int i = 0; i < count; ++i) times.push_back(std::int64_t{i} * ticksPerFrame);
    return times;
}

void fillPlane(AVFrame& frame, int plane, int value) {
    const AVPixFmtDescriptor* kind = av_pix_fmt_desc_get(AVPixelFormat(frame.format));
    const bool isChroma = plane == 1 || plane == 2;
    const int width = AV_CEIL_RSHIFT(frame.width, isChroma ? kind->log2_chroma_w : 0);
    const int height = AV_CEIL_RSHIFT(frame.height, isChroma ? kind->log2_chroma_h : 0);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) put(frame, plane, x, y, value);
}

Rgba pixelAt(const imaging::Image& image, int x, int fromTop) {
    const imaging::Bitmap bitmap = drawn(image, x, fromTop, 1);
    return rgbaAt(bitmap, 0, 0);
}

int numberIn(const imaging::Image& image) {
    const imaging::Bitmap bitmap = drawn(image, 0, 0, cellsAcross * cellPx);
    int number = 0;
    for (int cell = 0; cell < cells; ++cell) {
        const int x = cell % cellsAcross * cellPx + cellPx / 2, y = cell / cellsAcross * cellPx + cellPx / 2;
        const bool isBright = rgbaAt(bitmap, x, y).g > 128;
        if (cell >= 12 && isBright != isWhite(0, cell)) return -1;
        if (cell < 12 && isBright) number |= 1 << cell;
    }
    return number;
}

}   // namespace tavix::media::tests
