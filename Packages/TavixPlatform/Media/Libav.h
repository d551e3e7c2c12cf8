// Ownership and error texts of FFmpeg's libraries. Only sources of this folder include it.
#pragma once

#include "TavixPlatform/Media/LateLibav.h"
#include "TavixPlatform/Media/MediaError.h"

#include <memory>
#include <string>
#include <utility>

namespace tavix::media::libav {

struct Deleter {
    void operator()(AVCodecContext* p) const;
    void operator()(AVFrame* p) const { av_frame_free(&p); }
    void operator()(AVPacket* p) const { av_packet_free(&p); }
    void operator()(AVBSFContext* p) const { av_bsf_free(&p); }
    void operator()(AVBufferRef* p) const { av_buffer_unref(&p); }
    void operator()(AVFormatContext* p) const { avformat_free_context(p); }
};
using CodecContext = std::unique_ptr<AVCodecContext, Deleter>;
using Frame = std::unique_ptr<AVFrame, Deleter>;
using Packet = std::unique_ptr<AVPacket, Deleter>;
using BitstreamFilter = std::unique_ptr<AVBSFContext, Deleter>;
using Buffer = std::unique_ptr<AVBufferRef, Deleter>;
using FormatContext = std::unique_ptr<AVFormatContext, Deleter>;

// The pointer, or std::bad_alloc where the library gave none.
template <class Owner> Owner owned(typename Owner::pointer made) {
    if (!made) throw std::bad_alloc();
    return Owner(made);
}

// Options of a codec or container, by name.
class Options {
public:
    Options() = default;
    ~Options() {
        if (entries_) av_dict_free(&entries_);
    }
    Options(Options&& other) noexcept : entries_(std::exchange(other.entries_, nullptr)) {}
    Options& operator=(Options&&) = delete;
    void set(const char* name, const std::string& value) { av_dict_set(&entries_, name, value.c_str(), 0); }
    AVDictionary** get() { return &entries_; }
    bool isEmpty() const { return av_dict_count(entries_) == 0; }

private:
    AVDictionary* entries_ = nullptr;
};

// While one lives, what the libraries report as an error on this thread is kept here; nothing is printed.
// They often return a code that says little and write the reason to their log alone. A decoder that reports
// an error, on whichever thread, also sets the std::atomic<bool> that its context's `opaque` points to, if
// any: it conceals much of what is damaged and returns no error.
class ErrorScope {
public:
    ErrorScope();
    ~ErrorScope();
    ErrorScope(const ErrorScope&) = delete;
    ErrorScope& operator=(const ErrorScope&) = delete;

    // Why a call returned this negative code, without a full stop.
    std::string reason(int code) const;

private:
    static void collect(void* source, int level, const char* format, va_list arguments);
    std::string text_;
    ErrorScope* outer_;
};

// Throws `failure`, a colon and the reason, as one sentence, when the code is negative; returns it otherwise.
int check(int code, const ErrorScope& errors, const std::string& failure);

}   // namespace tavix::media::libav
