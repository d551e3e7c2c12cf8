#include "TavixPlatform/Media/DecoderRoom.h"

#include <numeric>

namespace tavix::media {

void DecoderRoom::enter(Tenant& tenant, std::size_t bytes) {
    const auto taken = [this] {
        return std::accumulate(places_.begin(), places_.end(), std::size_t(0),
            [](std::size_t sum, const Place& place) { return sum + place.bytes; });
    };
    while (!places_.empty() && taken() + bytes > bytes_) {
        isCrowded_ = true;
        Tenant& last = *places_.back().tenant;
        places_.pop_back();
        last.leave();
    }
    places_.push_back({&tenant, bytes});
}

void DecoderRoom::leave(const Tenant& tenant) {
    std::erase_if(places_, [&](const Place& place) { return place.tenant == &tenant; });
}

}   // namespace tavix::media
