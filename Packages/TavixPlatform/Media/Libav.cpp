#include "TavixPlatform/Media/Libav.h"

#include "TavixPlatform/Media/MediaFault.h"

extern "C" {
#include <libavutil/error.h>
#include <libavutil/log.h>
}

#include <array>
#include <cstdarg>
#include <cstdio>
#include <mutex>

namespace tavix::media::libav {
namespace {

// The libraries have one log for the whole process; the scope of the calling thread says where a line
// belongs.
thread_local ErrorScope* innermostScope = nullptr;

// Codes that only say that something failed.
bool saysLittle(int code) {
    return code == AVERROR(EINVAL) || code == AVERROR_EXTERNAL || code == AVERROR_UNKNOWN ||
           code == AVERROR_BUG || code == AVERROR_INVALIDDATA || code == AVERROR(ENOSYS);
}

}   // namespace

ErrorScope::ErrorScope() : outer_(innermostScope) {
    static std::once_flag installed;
    std::call_once(installed, [] { av_log_set_callback(&ErrorScope::collect); });
    innermostScope = this;
}

ErrorScope::~ErrorScope() { innermostScope = outer_; }

void ErrorScope::collect(void*, int level, const char* format, va_list arguments) {
    if (level > AV_LOG_ERROR || !innermostScope) return;
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
