#include "TavixRender/Export/PieceStore.h"

#include "TavixBase/ContentHash.h"
#include "TavixPlatform/Media/MovieJoin.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tavix {

namespace {

namespace fs = std::filesystem;
using std::chrono::hours;

constexpr std::string_view extension = ".piece", unfinished = ".unfinished";
// What is older than this was left by a program that was killed.
constexpr hours longestUnfinished{24};

struct Kept {
    fs::file_time_type lastUse;
    std::int64_t bytes;
    fs::path path;
};

std::vector<Kept> keptIn(const fs::path& folder) {
    std::vector<Kept> found;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const auto lastUse = entry.last_write_time(error);
        if (error) continue;   // another program has just removed it
        const fs::path& path = entry.path();
        if (path.extension() == unfinished && fs::file_time_type::clock::now() - lastUse > longestUnfinished)
            fs::remove(path, error);
        if (path.extension() != extension) continue;
        const auto bytes = entry.file_size(error);
        if (!error) found.push_back({lastUse, static_cast<std::int64_t>(bytes), path});
    }
    return found;
}

// A link takes no room; where there can be none the bytes are copied.
std::error_code linkOrCopy(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::remove(to, error);
    fs::create_hard_link(from, to, error);
    if (error) fs::copy_file(from, to, error);
    return error;
}

}   // namespace

PieceStore::PieceStore(fs::path folder) : folder_(std::move(folder)) {}

fs::path PieceStore::fileOf(const Digest& key) const { return folder_ / nameOf(key).append(extension); }

bool PieceStore::fetch(const Digest& key, std::int64_t frameCount, const fs::path& to) const {
    const fs::path file = fileOf(key);
    std::error_code error;
    if (!fs::exists(file, error) || linkOrCopy(file, to)) return false;
    try {
        if (media::pieceFrameCount(to) == frameCount) {
            fs::last_write_time(file, fs::file_time_type::clock::now(), error);
            return true;
        }
    } catch (const media::MediaError&) {}   // damaged
    fs::remove(file, error);
    fs::remove(to, error);
    return false;
}

std::error_code PieceStore::keep(const Digest& key, const fs::path& piece) const {
    std::error_code error;
    // What somebody's films show is nobody else's business.
    if (fs::create_directories(folder_, error)) fs::permissions(folder_, fs::perms::owner_all, error);
    if (error) return error;
    const fs::path file = fileOf(key);
    const fs::path hidden = folder_ / (nameOf(key) + "-" + std::to_string(::getpid())).append(unfinished);
    error = linkOrCopy(piece, hidden);
    if (!error) fs::rename(hidden, file, error);
    // Of two names of one file renaming removes neither.
    std::error_code ignored;
    fs::remove(hidden, ignored);
    return error;
}

void PieceStore::trim(std::int64_t toBytes) const {
    std::vector<Kept> kept = keptIn(folder_);
    std::ranges::sort(kept, std::greater(), &Kept::lastUse);
    std::int64_t bytes = 0;
    std::error_code ignored;
    for (const Kept& piece : kept)
        if ((bytes += piece.bytes) > toBytes) fs::remove(piece.path, ignored);
}

PieceStore::Usage PieceStore::usage() const {
    Usage usage;
    for (const Kept& piece : keptIn(folder_)) {
        ++usage.pieces;
        usage.bytes += piece.bytes;
    }
    return usage;
}

PieceStore::Usage PieceStore::clear() const {
    const Usage before = usage();
    trim(0);
    return before;
}

fs::path PieceStore::usualFolder() {
    const auto named = [](const char* variable) -> fs::path {
        const char* value = std::getenv(variable);
        // A relative one is to be ignored.
        return value != nullptr && *value == '/' ? fs::path(value) : fs::path();
    };
    if (const fs::path cache = named("XDG_CACHE_HOME"); !cache.empty()) return cache / "tavix";
    const fs::path home = named("HOME");
    return home.empty() ? home : home / ".cache" / "tavix";
}

}   // namespace tavix
