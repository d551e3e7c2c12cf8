// Bytes as prepared light: as they come, and in a file that is whole but for them.
#include "TavixBase/ContentHash.h"
#include "TavixPlatform/Scene3D/EnvironmentLight.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

using namespace tavix;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string given(reinterpret_cast<const char*>(data), size);
    scene3d::Environment::fromBytes(given);
    constexpr std::string_view head = "TavixLight 0001\n";
    std::string forged(scene3d::Environment::byteCount(), '\0');
    const std::size_t last = forged.size() - sizeof(Digest);
    head.copy(forged.data(), head.size());
    given.copy(forged.data() + head.size(), last - head.size());
    const Digest digest = contentHash(std::string_view(forged).substr(0, last));
    std::memcpy(forged.data() + last, &digest, sizeof digest);
    if (const auto light = scene3d::Environment::fromBytes(forged))
        for (const float texel : light->texels())
            if (!(texel - texel == 0)) __builtin_trap();   // light that is not finite
    return 0;
}
