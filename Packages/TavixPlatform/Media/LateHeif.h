// The functions of libheif that are called here; see LateLibrary.h.
#pragma once

#include "TavixPlatform/Media/LateLibrary.h"

#include <libheif/heif.h>

#include <memory>

namespace tavix::media {

inline constexpr LateLibrary lateHeif("libheif.so.1", "libheif1");

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-attributes"   // a type has none; they are hints to optimise calls
TAVIX_LATE_FUNCTION(lateHeif, heif_check_filetype);
TAVIX_LATE_FUNCTION(lateHeif, heif_context_alloc);
TAVIX_LATE_FUNCTION(lateHeif, heif_context_free);
TAVIX_LATE_FUNCTION(lateHeif, heif_context_get_primary_image_handle);
TAVIX_LATE_FUNCTION(lateHeif, heif_context_read_from_file);
TAVIX_LATE_FUNCTION(lateHeif, heif_context_read_from_memory_without_copy);
TAVIX_LATE_FUNCTION(lateHeif, heif_decode_image);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_get_bits_per_pixel_range);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_get_height);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_get_plane_readonly);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_get_width);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_handle_get_height);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_handle_get_luma_bits_per_pixel);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_handle_get_nclx_color_profile);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_handle_get_raw_color_profile);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_handle_get_raw_color_profile_size);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_handle_get_width);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_handle_has_alpha_channel);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_handle_release);
TAVIX_LATE_FUNCTION(lateHeif, heif_image_release);
TAVIX_LATE_FUNCTION(lateHeif, heif_nclx_color_profile_free);
#pragma GCC diagnostic pop

struct HeifDeleter {
    void operator()(heif_context* p) const { heif_context_free(p); }
    void operator()(const heif_image_handle* p) const { heif_image_handle_release(p); }
    void operator()(const heif_image* p) const { heif_image_release(p); }
    void operator()(heif_color_profile_nclx* p) const { heif_nclx_color_profile_free(p); }
};
using HeifContext = std::unique_ptr<heif_context, HeifDeleter>;
using HeifHandle = std::unique_ptr<const heif_image_handle, HeifDeleter>;

}   // namespace tavix::media
