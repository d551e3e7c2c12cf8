// The functions of FFmpeg's libraries that are called here; see LateLibrary.h. One that is missing below does
// not link.
#pragma once

#include "TavixPlatform/Media/LateLibrary.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavcodec/bsf.h>
#include <libavformat/avformat.h>
#include <libavutil/hwcontext.h>
#include <libavutil/imgutils.h>
#include <libavutil/macros.h>
#include <libavutil/mathematics.h>
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

namespace tavix::media {

// It needs libavcodec, libavutil and libswresample.
inline constexpr LateLibrary lateFormats("libavformat.so." AV_STRINGIFY(LIBAVFORMAT_VERSION_MAJOR),
    "libavformat" AV_STRINGIFY(LIBAVFORMAT_VERSION_MAJOR));
inline constexpr LateLibrary lateScaling("libswscale.so." AV_STRINGIFY(LIBSWSCALE_VERSION_MAJOR),
    "libswscale" AV_STRINGIFY(LIBSWSCALE_VERSION_MAJOR));

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-attributes"   // a type has none; they are hints to optimise calls
TAVIX_LATE_FUNCTION(lateFormats, av_bsf_free);
TAVIX_LATE_FUNCTION(lateFormats, av_bsf_init);
TAVIX_LATE_FUNCTION(lateFormats, av_bsf_list_parse_str);
TAVIX_LATE_FUNCTION(lateFormats, av_bsf_receive_packet);
TAVIX_LATE_FUNCTION(lateFormats, av_bsf_send_packet);
TAVIX_LATE_FUNCTION(lateFormats, av_buffer_allocz);
TAVIX_LATE_FUNCTION(lateFormats, av_buffer_create);
TAVIX_LATE_FUNCTION(lateFormats, av_buffer_unref);
TAVIX_LATE_FUNCTION(lateFormats, av_channel_layout_check);
TAVIX_LATE_FUNCTION(lateFormats, av_channel_layout_compare);
TAVIX_LATE_FUNCTION(lateFormats, av_channel_layout_copy);
TAVIX_LATE_FUNCTION(lateFormats, av_channel_layout_default);
TAVIX_LATE_FUNCTION(lateFormats, av_channel_layout_uninit);
TAVIX_LATE_FUNCTION(lateFormats, av_color_range_name);
TAVIX_LATE_FUNCTION(lateFormats, av_color_space_name);
TAVIX_LATE_FUNCTION(lateFormats, av_compare_ts);
TAVIX_LATE_FUNCTION(lateFormats, av_dict_count);
TAVIX_LATE_FUNCTION(lateFormats, av_dict_free);
TAVIX_LATE_FUNCTION(lateFormats, av_dict_get);
TAVIX_LATE_FUNCTION(lateFormats, av_dict_set);
TAVIX_LATE_FUNCTION(lateFormats, av_frame_alloc);
TAVIX_LATE_FUNCTION(lateFormats, av_frame_copy);
TAVIX_LATE_FUNCTION(lateFormats, av_frame_copy_props);
TAVIX_LATE_FUNCTION(lateFormats, av_frame_free);
TAVIX_LATE_FUNCTION(lateFormats, av_frame_get_buffer);
TAVIX_LATE_FUNCTION(lateFormats, av_free);
TAVIX_LATE_FUNCTION(lateFormats, av_freep);
TAVIX_LATE_FUNCTION(lateFormats, av_get_bytes_per_sample);
TAVIX_LATE_FUNCTION(lateFormats, av_get_pix_fmt_name);
TAVIX_LATE_FUNCTION(lateFormats, av_guess_sample_aspect_ratio);
TAVIX_LATE_FUNCTION(lateFormats, av_hwdevice_ctx_create);
TAVIX_LATE_FUNCTION(lateFormats, av_hwframe_ctx_alloc);
TAVIX_LATE_FUNCTION(lateFormats, av_hwframe_ctx_init);
TAVIX_LATE_FUNCTION(lateFormats, av_hwframe_get_buffer);
TAVIX_LATE_FUNCTION(lateFormats, av_hwframe_transfer_data);
TAVIX_LATE_FUNCTION(lateFormats, av_image_get_buffer_size);
TAVIX_LATE_FUNCTION(lateFormats, av_interleaved_write_frame);
TAVIX_LATE_FUNCTION(lateFormats, av_log_set_callback);
TAVIX_LATE_FUNCTION(lateFormats, av_malloc);
TAVIX_LATE_FUNCTION(lateFormats, av_mallocz);
TAVIX_LATE_FUNCTION(lateFormats, av_new_packet);
TAVIX_LATE_FUNCTION(lateFormats, av_opt_set_chlayout);
TAVIX_LATE_FUNCTION(lateFormats, av_opt_set_double);
TAVIX_LATE_FUNCTION(lateFormats, av_opt_set_int);
TAVIX_LATE_FUNCTION(lateFormats, av_opt_set_sample_fmt);
TAVIX_LATE_FUNCTION(lateFormats, av_packet_alloc);
TAVIX_LATE_FUNCTION(lateFormats, av_packet_free);
TAVIX_LATE_FUNCTION(lateFormats, av_packet_get_side_data);
TAVIX_LATE_FUNCTION(lateFormats, av_packet_new_side_data);
TAVIX_LATE_FUNCTION(lateFormats, av_packet_rescale_ts);
TAVIX_LATE_FUNCTION(lateFormats, av_packet_unref);
TAVIX_LATE_FUNCTION(lateFormats, av_pix_fmt_desc_get);
TAVIX_LATE_FUNCTION(lateFormats, av_read_frame);
TAVIX_LATE_FUNCTION(lateFormats, av_reduce);
TAVIX_LATE_FUNCTION(lateFormats, av_rescale);
TAVIX_LATE_FUNCTION(lateFormats, av_rescale_q);
TAVIX_LATE_FUNCTION(lateFormats, av_sample_fmt_is_planar);
TAVIX_LATE_FUNCTION(lateFormats, av_seek_frame);
TAVIX_LATE_FUNCTION(lateFormats, av_strdup);
TAVIX_LATE_FUNCTION(lateFormats, av_stream_get_side_data);
TAVIX_LATE_FUNCTION(lateFormats, av_strerror);
TAVIX_LATE_FUNCTION(lateFormats, av_write_trailer);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_alloc_context3);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_find_decoder);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_find_decoder_by_name);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_find_encoder_by_name);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_flush_buffers);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_descriptor_get);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_free_context);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_get_class);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_get_name);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_is_open);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_open2);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_parameters_alloc);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_parameters_copy);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_parameters_free);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_parameters_from_context);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_parameters_to_context);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_receive_frame);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_receive_packet);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_send_frame);
TAVIX_LATE_FUNCTION(lateFormats, avcodec_send_packet);
TAVIX_LATE_FUNCTION(lateFormats, avformat_alloc_context);
TAVIX_LATE_FUNCTION(lateFormats, avformat_alloc_output_context2);
TAVIX_LATE_FUNCTION(lateFormats, avformat_close_input);
TAVIX_LATE_FUNCTION(lateFormats, avformat_find_stream_info);
TAVIX_LATE_FUNCTION(lateFormats, avformat_free_context);
TAVIX_LATE_FUNCTION(lateFormats, avformat_new_stream);
TAVIX_LATE_FUNCTION(lateFormats, avformat_open_input);
TAVIX_LATE_FUNCTION(lateFormats, avformat_seek_file);
TAVIX_LATE_FUNCTION(lateFormats, avformat_write_header);
TAVIX_LATE_FUNCTION(lateFormats, avio_alloc_context);
TAVIX_LATE_FUNCTION(lateFormats, avio_closep);
TAVIX_LATE_FUNCTION(lateFormats, avio_context_free);
TAVIX_LATE_FUNCTION(lateFormats, avio_flush);
TAVIX_LATE_FUNCTION(lateFormats, avio_open);
TAVIX_LATE_FUNCTION(lateFormats, swr_alloc);
TAVIX_LATE_FUNCTION(lateFormats, swr_build_matrix2);
TAVIX_LATE_FUNCTION(lateFormats, swr_convert);
TAVIX_LATE_FUNCTION(lateFormats, swr_free);
TAVIX_LATE_FUNCTION(lateFormats, swr_get_out_samples);
TAVIX_LATE_FUNCTION(lateFormats, swr_init);
TAVIX_LATE_FUNCTION(lateFormats, swr_inject_silence);
TAVIX_LATE_FUNCTION(lateFormats, swr_set_matrix);

TAVIX_LATE_FUNCTION(lateScaling, sws_freeContext);
TAVIX_LATE_FUNCTION(lateScaling, sws_getCoefficients);
TAVIX_LATE_FUNCTION(lateScaling, sws_getContext);
TAVIX_LATE_FUNCTION(lateScaling, sws_isSupportedInput);
TAVIX_LATE_FUNCTION(lateScaling, sws_scale);
TAVIX_LATE_FUNCTION(lateScaling, sws_setColorspaceDetails);
#pragma GCC diagnostic pop

}   // namespace tavix::media
