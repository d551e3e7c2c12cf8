// Prepared light as the bytes of a file: a head, the irradiance, the light of every texel, and a digest of
// all that.
#include "TavixBase/ContentHash.h"
#include "TavixPlatform/Scene3D/EnvironmentLight.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <tuple>

namespace tavix::scene3d {

namespace {

static_assert(std::endian::native == std::endian::little);

// The number grows with every change of what `Environment::make` gives for a picture.
constexpr std::string_view head = "TavixLight 0001\n";

template <class Value> void append(std::string& bytes, const Value& value) {
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

template <class Value> Value taken(std::string_view& bytes) {
    Value value;
    std::memcpy(&value, bytes.data(), sizeof value);
    bytes.remove_prefix(sizeof value);
    return value;
}

}   // namespace

std::string Environment::bytes() const {
    std::string bytes(head);
    for (const Vec3& band : irradiance_) append(bytes, std::array{band.x, band.y, band.z});
    for (std::size_t texel = 0; texel < texels_.size(); texel += 4)
        append(bytes, std::array{texels_[texel], texels_[texel + 1], texels_[texel + 2]});
    append(bytes, contentHash(bytes));
    return bytes;
}

std::size_t Environment::byteCount() {
    constexpr std::size_t bands = std::tuple_size_v<decltype(irradiance_)>;
    return head.size() + (bands + texelCount()) * 3 * sizeof(float) + sizeof(Digest);
}

EnvironmentRef Environment::fromBytes(std::string_view bytes) {
    constexpr std::size_t digestBytes = sizeof(Digest);
    if (bytes.size() != byteCount() || !bytes.starts_with(head)) return nullptr;
    std::string_view digest = bytes.substr(bytes.size() - digestBytes);
    bytes.remove_suffix(digestBytes);
    if (contentHash(bytes) != taken<Digest>(digest)) return nullptr;
    bytes.remove_prefix(head.size());
    const std::shared_ptr<Environment> result(new Environment());
    result->layOutLevels();
    bool isFinite = true;
    const auto takenLight = [&] {
        const auto light = taken<std::array<float, 3>>(bytes);
        for (const float channel : light) isFinite &= std::isfinite(channel);
        return light;
    };
    for (Vec3& band : result->irradiance_) {
        const auto light = takenLight();
        band = {light[0], light[1], light[2]};
    }
    for (std::size_t texel = 0; texel < result->texels_.size(); texel += 4)
        std::ranges::copy(takenLight(), result->texels_.begin() + std::ptrdiff_t(texel));
    return isFinite ? result : nullptr;
}

}   // namespace tavix::scene3d
