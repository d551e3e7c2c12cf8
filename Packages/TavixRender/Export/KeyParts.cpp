#include "TavixRender/Export/KeyParts.h"

#include "TavixBase/ContentHash.h"

#include <fstream>
#include <string_view>
#include <vector>

namespace tavix::KeyParts {

std::optional<Digest> contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    ContentHash hash;
    std::vector<char> room(std::size_t{1} << 20);
    while (file) {
        file.read(room.data(), static_cast<std::streamsize>(room.size()));
        hash.add(std::string_view(room.data(), static_cast<std::size_t>(file.gcount())));
    }
    if (!file.eof()) return std::nullopt;
    return hash.digest();
}

constexpr std::uint64_t formOfEncoding = 3;   // counts with how the encoders are set

void addEncoding(Hash& hash, const FilmFile& file) {
    hash.add(formOfEncoding);
    hash.add(std::uint64_t(file.codec)).add(std::uint64_t(file.effort));
    hash.add(std::uint64_t(file.rate.quality.value_or(-1)));
    hash.add(std::uint64_t(file.rate.bitsPerSec.value_or(-1)));
    hash.add(file.rate.coarseness.value_or(-1));
    if (file.hardware) hash.add(contentHash(file.hardware->name));
}

}   // namespace tavix::KeyParts
