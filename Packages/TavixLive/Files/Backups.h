// Earlier versions of documents: what every save replaced, thinned as it grows old.
#pragma once

#include <chrono>
#include <filesystem>
#include <string_view>
#include <vector>

namespace tavix {

// Blocks; used by one thread at a time.
class Backups {
public:
    using Time = std::chrono::sys_time<std::chrono::milliseconds>;
    struct Item {
        std::filesystem::path file;   // a document, as it stood in the bundle
        Time at;
    };

    // In a folder for each bundle, which is made when something is kept first.
    explicit Backups(std::filesystem::path folder) : folder_(std::move(folder)) {}

    // Keeps the text unless the newest backup of the bundle is the same, and thins the others. Throws a
    // `Failure` when it cannot be written.
    void keep(const std::filesystem::path& bundle, std::string_view text, Time now) const;
    std::vector<Item> list(const std::filesystem::path& bundle) const;   // the newest first

    // Those to keep, the newest first: the newest ten; beyond them the last of each hour for a day, of each
    // day for thirty, and of each week for a year. Thinning what is thinned changes nothing.
    static std::vector<Time> thinned(std::vector<Time> times, Time now);

private:
    std::filesystem::path folderOf(const std::filesystem::path& bundle) const;

    std::filesystem::path folder_;
};

}   // namespace tavix
