// The memory that the decoders of one film take together. Where there is not enough for all, clips take
// turns: each decodes some pictures ahead, closes its decoder, and opens it again when they are used up. What
// is shown is the same.
#pragma once

#include <cstddef>
#include <vector>

namespace tavix::media {

// Used by one thread at a time, and so are its tenants.
class DecoderRoom {
public:
    class Tenant {
    public:
        virtual ~Tenant() = default;
        virtual void leave() = 0;   // closes its decoder; it is out of the room already
    };

    explicit DecoderRoom(std::size_t bytes) : bytes_(bytes) {}
    DecoderRoom(const DecoderRoom&) = delete;
    DecoderRoom& operator=(const DecoderRoom&) = delete;

    // Lets a decoder of so many bytes in. Those that came last leave, until it fits or is alone: clips are
    // asked for in turn, so these are the ones whose turn is farthest off.
    void enter(Tenant& tenant, std::size_t bytes);
    void leave(const Tenant& tenant);
    // Whether somebody had to leave. From then on decoders do not work ahead beside whoever shows them.
    bool isCrowded() const { return isCrowded_; }
    // How much each may keep of pictures that it has decoded ahead.
    std::size_t bytesAhead() const { return bytes_ / 64; }

private:
    struct Place {
        Tenant* tenant;
        std::size_t bytes;
    };
    std::size_t bytes_;
    std::vector<Place> places_;   // in the order in which they came
    bool isCrowded_ = false;
};

}   // namespace tavix::media
