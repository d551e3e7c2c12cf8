#include "TavixLive/Files/Backups.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/FileBytes.h"

#include <xxhash.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <utility>

namespace tavix {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono;

constexpr std::size_t newestKept = 10;

// As in 2026-11-23T10-05-07.123Z.json, so that names sort as times.
std::string nameOf(Backups::Time at) {
    const auto day = floor<days>(at);
    const year_month_day calendar(day);
    const hh_mm_ss time(at - day);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d-%02d-%02d.%03dZ.json", int(calendar.year()),
        unsigned(calendar.month()), unsigned(calendar.day()), int(time.hours().count()),
        int(time.minutes().count()), int(time.seconds().count()), int(time.subseconds().count()));
    return text;
}

std::optional<Backups::Time> timeIn(const std::string& name) {
    int year = 0, hour = 0, minute = 0, second = 0, milli = 0, end = 0;
    unsigned month = 0, day = 0;
    if (std::sscanf(name.c_str(), "%d-%u-%uT%d-%d-%d.%dZ.json%n", &year, &month, &day, &hour, &minute,
            &second, &milli, &end) != 7 ||
        std::size_t(end) != name.size())
        return std::nullopt;
    const year_month_day calendar{std::chrono::year(year), std::chrono::month(month), std::chrono::day(day)};
    if (!calendar.ok()) return std::nullopt;
    return sys_days(calendar) + hours(hour) + minutes(minute) + seconds(second) + milliseconds(milli);
}

// Since when, and how far apart those before are kept.
struct Age {
    milliseconds upTo, apart;
};
constexpr Age ages[] = {{days(1), hours(1)}, {days(30), days(1)}, {days(365), days(7)}};

}   // namespace

std::vector<Backups::Time> Backups::thinned(std::vector<Time> times, Time now) {
    std::ranges::sort(times, std::greater());
    std::vector<Time> kept;
    std::set<std::pair<std::int64_t, std::int64_t>> taken;   // a length of time, and which one of that length
    for (std::size_t i = 0; i < times.size(); ++i) {
        const milliseconds age = now - times[i];
        bool isKept = i < newestKept;
        for (const Age& step : ages) {
            if (age > step.upTo) continue;
            const auto which = floor<milliseconds>(times[i].time_since_epoch()) / step.apart;
            isKept = taken.emplace(step.apart.count(), which).second || isKept;
            break;
        }
        if (isKept) kept.push_back(times[i]);
    }
    return kept;
}

fs::path Backups::folderOf(const fs::path& bundle) const {
    const std::string path = fs::absolute(bundle).lexically_normal().string();
    char hash[24];
    std::snprintf(hash, sizeof hash, "-%016llx",
        static_cast<unsigned long long>(XXH3_64bits(path.data(), path.size())));
    return folder_ / (bundle.stem().string() + hash);
}

std::vector<Backups::Item> Backups::list(const fs::path& bundle) const {
    std::vector<Item> items;
    std::error_code error;
    for (fs::directory_iterator entry(folderOf(bundle), error), end; !error && entry != end;
         entry.increment(error))
        if (const auto at = timeIn(entry->path().filename().string())) items.push_back({entry->path(), *at});
    std::ranges::sort(items, std::greater(), &Item::at);
    return items;
}

void Backups::keep(const fs::path& bundle, std::string_view text, Time now) const {
    const std::vector<Item> before = list(bundle);
    if (!before.empty() && readBytes(before.front().file) == text) return;
    std::error_code error;
    fs::create_directories(folderOf(bundle), error);
    if (error) throw Failure("Cannot make \"" + folderOf(bundle).string() + "\": " + error.message() + ".");
    writeBytesAtomically(text, folderOf(bundle) / nameOf(now));
    std::vector<Time> times{now};
    for (const Item& item : before) times.push_back(item.at);
    const std::vector<Time> kept = thinned(std::move(times), now);
    for (const Item& item : before)
        if (!std::ranges::binary_search(kept, item.at, std::greater())) fs::remove(item.file, error);
}

}   // namespace tavix
