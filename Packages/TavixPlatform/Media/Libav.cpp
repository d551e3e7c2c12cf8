#include "TavixPlatform/Media/Libav.h"

#include "TavixPlatform/Media/MediaFault.h"

extern "C" {
#include <libavutil/error.h>
#include <libavutil/log.h>
}

#include <array>
#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <string_view>

namespace tavix::media::libav {

namespace {

// The threads of the AV1 encoder end only once they know that no more frames come, and that only after a
// frame.
void endAv1(AVCodecContext& encoder) {
    const Packet packet(av_packet_alloc());
    const Frame frame(av_frame_alloc());
    if (!packet || !frame) return;
    frame->format = encoder.pix_fmt;
    frame->width = encoder.width;
    frame->height = encoder.height;
    if (encoder.frame_number == 0 && av_frame_get_buffer(frame.get(), 0) >= 0)
        avcodec_send_frame(&encoder, frame.get());
    avcodec_send_frame(&encoder, nullptr);
    while (avcodec_receive_packet(&encoder, packet.get()) >= 0) av_packet_unref(packet.get());
}

}   // namespace

void Deleter::operator()(AVCodecContext* p) const {
    if (avcodec_is_open(p) && std::string_view(p->codec->name) == "libsvtav1") endAv1(*p);
    avcodec_free_context(&p);
}

namespace {

// The libraries have one log for the whole process; the scope of the calling thread says where a line
// belongs.
thread_local ErrorScope* innermostScope = nullptr;

// Codes that only say that something failed.
bool saysLittle(int code) {
    return code == AVERROR(EINVAL) || code == AVERROR_EXTERNAL || code == AVERROR_UNKNOWN ||
           code == AVERROR_BUG || code == AVERROR_INVALIDDATA || code == AVERROR(ENOSYS);
}

// A decoder that works on several threads speaks for copies of its context, which share this pointer.
void noteReport(void* source) {
    const auto* kind = source ? *static_cast<const AVClass* const*>(source) : nullptr;
    if (kind != avcodec_get_class()) return;
    if (auto* hasReported = static_cast<std::atomic<bool>*>(static_cast<AVCodecContext*>(source)->opaque))
        *hasReported = true;
}

}   // namespace

ErrorScope::ErrorScope() : outer_(innermostScope) {
    static std::once_flag installed;
    std::call_once(installed, [] { av_log_set_callback(&ErrorScope::collect); });
    innermostScope = this;
}

ErrorScope::~ErrorScope() { innermostScope = outer_; }

void ErrorScope::collect(void* source, int level, const char* format, va_list arguments) {
    if (level > AV_LOG_ERROR) return;
    noteReport(source);
    if (!innermostScope) return;
    std::array<char, 512> line;
    if (std::vsnprintf(line.data(), line.size(), format, arguments) <= 0) return;
    std::string text = line.data();
    const auto end = text.find_last_not_of(" \r\n.");
    text.erase(end == std::string::npos ? 0 : end + 1);
    if (!text.empty()) innermostScope->text_ = std::move(text);
}

std::string ErrorScope::reason(int code) const {
    if (saysLittle(code) && !text_.empty()) return text_;
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(code, text.data(), text.size());
    return text.data();
}

int check(int code, const ErrorScope& errors, const std::string& failure) {
    if (code == AVERROR(ENOMEM)) throw MediaFault(failure + ": there is not enough memory.");
    if (code < 0) throw MediaError(failure + ": " + errors.reason(code) + ".");
    return code;
}

}   // namespace tavix::media::libav
