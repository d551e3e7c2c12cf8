// Bytes as prepared light: as they come, and in a file that is whole but for them.
#include "TavixBase/ContentHash.h"
#include "TavixPlatform/Scene3D/EnvironmentLight.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

using namespace tavix;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string given(reinterpret_cast<const char*>(data), size);
    scene3d::Environment::fromBytes(given);
    static const std::string whole =
        scene3d::Environment::make({2, 2, std::vector<scene3d::Vec3>(4, {1, 1, 1})})->bytes();
    std::string forged = whole;
    const std::size_t last = forged.size() - sizeof(Digest);
    std::copy_n(given.begin(), std::min(size, last), forged.begin());
    const Digest digest = contentHash(std::string_view(forged).substr(0, last));
    std::memcpy(forged.data() + last, &digest, sizeof digest);
    if (const auto light = scene3d::Environment::fromBytes(forged))
        for (const float texel : light->texels())
            if (!(texel - texel == 0)) __builtin_trap();   // light that is not finite
    return 0;
}
