#include "Engine/Reel/KnownProbes.h"

#include "TavixBase/ContentHash.h"
#include "TavixBase/Failure.h"
#include "TavixBase/Hash.h"
#include "TavixCore/Support/Document.h"
#include "TavixRender/Assets/FileIdentity.h"
#include "TavixRender/Export/PieceStore.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace tavix::engine {

namespace fs = std::filesystem;

namespace {

constexpr std::uint64_t formOfProbes = 1;   // counts with what is looked for in pictures, and how

}   // namespace

KnownProbes KnownProbes::usual() {
    const fs::path folder = PieceStore::usualFolder();
    return KnownProbes(folder.empty() ? folder : folder / "recordings");
}

std::optional<fs::path> KnownProbes::fileOf(const fs::path& video) const {
    std::error_code error;
    const fs::path path = fs::canonical(video, error);
    const auto identity = error || folder_.empty() ? std::nullopt : FileIdentity::of(path);
    if (!identity) return std::nullopt;
    Hash hash;
    hash.add(formOfProbes).add(contentHash(path.string())).add(identity->device).add(identity->node);
    hash.add(std::uint64_t(identity->sizeBytes)).add(std::uint64_t(identity->changedNs));
    return folder_ / (nameOf(hash.digest()) + ".json");
}

std::optional<VideoProbe> KnownProbes::find(const fs::path& video) const try {
    const auto file = fileOf(video);
    if (!file || !isFile(*file)) return std::nullopt;
    const VideoProbe probe = decodeFile<VideoProbe>(*file);
    std::error_code ignored;
    fs::last_write_time(*file, fs::file_time_type::clock::now(), ignored);
    return probe;
} catch (const Failure&) {
    return std::nullopt;
}

void KnownProbes::keep(const fs::path& video, const VideoProbe& probe) const try {
    const auto file = fileOf(video);
    if (!file) return;
    std::error_code ignored;
    fs::create_directories(folder_, ignored);
    writeFile(probe, *file);
    trim();
} catch (const Failure&) {}

void KnownProbes::trim() const {
    std::vector<std::pair<fs::file_time_type, fs::path>> kept;
    std::error_code error;
    for (fs::directory_iterator entry(folder_, error), end; !error && entry != end; entry.increment(error))
        kept.emplace_back(entry->last_write_time(error), entry->path());
    if (kept.size() <= mostProbes) return;
    std::ranges::sort(kept, std::greater());
    for (std::size_t i = mostProbes; i < kept.size(); ++i) fs::remove(kept[i].second, error);
}

void KnownProbes::clear() const {
    std::error_code ignored;
    if (!folder_.empty()) fs::remove_all(folder_, ignored);
}

}   // namespace tavix::engine
