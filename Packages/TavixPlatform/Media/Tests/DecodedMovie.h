// What a movie file holds, read back with FFmpeg's libraries, for comparing with what was written.
#pragma once

#include "TavixPlatform/Media/Libav.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace tavix::media::tests {

struct DecodedMovie {
    AVRational timeBase{};
    std::int64_t durationUnits = 0;
    std::string container;
    unsigned tag = 0;
    std::vector<std::int64_t> presentationTimes;   // of frames, in the order they are shown
    std::vector<libav::Frame> frames;
    int keyPackets = 0;
};

inline void drainInto(DecodedMovie& movie, AVCodecContext& decoder) {
    for (;;) {
        auto frame = libav::owned<libav::Frame>(av_frame_alloc());
        if (avcodec_receive_frame(&decoder, frame.get()) < 0) return;
        movie.presentationTimes.push_back(frame->pts);
        movie.frames.push_back(std::move(frame));
    }
}

inline DecodedMovie decodeMovie(const std::filesystem::path& path) {
    DecodedMovie movie;
    AVFormatContext* input = nullptr;
    if (avformat_open_input(&input, path.c_str(), nullptr, nullptr) < 0) {
        ADD_FAILURE() << "cannot open " << path;
        return movie;
    }
    EXPECT_GE(avformat_find_stream_info(input, nullptr), 0);
    const AVStream& stream = *input->streams[0];
    movie.timeBase = stream.time_base;
    movie.durationUnits = stream.duration;
    movie.tag = stream.codecpar->codec_tag;
    const AVDictionaryEntry* brand = av_dict_get(input->metadata, "major_brand", nullptr, 0);
    movie.container = brand ? brand->value : input->iformat->name;
    const AVCodec* codec = avcodec_find_decoder(stream.codecpar->codec_id);
    auto decoder = libav::owned<libav::CodecContext>(avcodec_alloc_context3(codec));
    avcodec_parameters_to_context(decoder.get(), stream.codecpar);
    EXPECT_GE(avcodec_open2(decoder.get(), codec, nullptr), 0);
    auto packet = libav::owned<libav::Packet>(av_packet_alloc());
    while (av_read_frame(input, packet.get()) >= 0) {
        movie.keyPackets += (packet->flags & AV_PKT_FLAG_KEY) != 0;
        avcodec_send_packet(decoder.get(), packet.get());
        drainInto(movie, *decoder);
        av_packet_unref(packet.get());
    }
    avcodec_send_packet(decoder.get(), nullptr);
    drainInto(movie, *decoder);
    avformat_close_input(&input);
    return movie;
}

inline std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

using testsupport::TemporaryFolder;

}   // namespace tavix::media::tests
