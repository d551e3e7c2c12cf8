// The encoder and the container behind a movie's settings.
#pragma once

#include "TavixPlatform/Media/Libav.h"
#include "TavixPlatform/Media/MovieWriter.h"

#include <memory>

namespace tavix::media {

class PacketSink;

// Throws MediaError when the codec cannot write such a movie, a frame of 4:2:0 with an odd side for one.
libav::CodecContext openMovieEncoder(const MovieSettings& settings);

// Takes what concerns the movie alone out of the encoder's packets, such as its name and version; null when
// nothing needs to be taken out.
libav::BitstreamFilter openMovieFilter(const MovieSettings& settings, const AVCodecContext& encoder);

// How movie files are written: the index first, the colours named, times in units of the timescale.
libav::Options movieOptions(MovieContainer container, int timescale);
const char* nameOf(MovieContainer container);   // among containers to write; not of a piece

// Creates the file; the index will stand in front of the pictures, for playing while it is still loading.
std::unique_ptr<PacketSink> openMovieFile(const MovieSettings& settings, const AVCodecContext& encoder);

}   // namespace tavix::media
