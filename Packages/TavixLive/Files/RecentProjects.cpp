#include "TavixLive/Files/RecentProjects.h"

#include <cstdio>
#include <optional>
#include <system_error>

namespace tavix {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view recentProjectsKey = "recentProjects";

// As in 2026-11-23T10:00:00Z.
std::string iso8601(RecentProjects::Date date) {
    const auto day = std::chrono::floor<std::chrono::days>(date);
    const std::chrono::year_month_day calendar(day);
    const std::chrono::hh_mm_ss time(date - day);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", int(calendar.year()),
        unsigned(calendar.month()), unsigned(calendar.day()), int(time.hours().count()),
        int(time.minutes().count()), int(time.seconds().count()));
    return text;
}

RecentProjects::Date dateIn(const std::string& text) {
    int year = 0, hours = 0, minutes = 0, seconds = 0;
    unsigned month = 0, day = 0;
    if (std::sscanf(text.c_str(), "%d-%u-%uT%d:%d:%dZ", &year, &month, &day, &hours, &minutes, &seconds) != 6)
        return {};
    const std::chrono::year_month_day calendar{
        std::chrono::year(year), std::chrono::month(month), std::chrono::day(day)};
    if (!calendar.ok()) return {};
    return std::chrono::sys_days(calendar) + std::chrono::hours(hours) + std::chrono::minutes(minutes) +
           std::chrono::seconds(seconds);
}

fs::path standardized(const fs::path& path) {
    fs::path standard = fs::absolute(path).lexically_normal();
    return standard.has_filename() ? standard : standard.parent_path();
}

// The two texts of an entry; nothing for what is none.
struct Entry {
    std::string path, date;
};
std::optional<Entry> entryIn(const Json& json) {
    const JsonArray* texts = json.array();
    if (texts == nullptr || texts->size() < 2 || !(*texts)[0].text() || !(*texts)[1].text())
        return std::nullopt;
    return Entry{*(*texts)[0].text(), *(*texts)[1].text()};
}

}   // namespace

void RecentProjects::add(const fs::path& path, Date now) const {
    const std::string added = standardized(path).string();
    JsonArray kept{JsonArray{added, iso8601(now)}};
    const Json before = defaults_.value(recentProjectsKey);
    if (const JsonArray* entries = before.array())
        for (const Json& json : *entries)
            if (const auto entry = entryIn(json); entry && entry->path != added && kept.size() < mostKept)
                kept.push_back(json);
    defaults_.set(recentProjectsKey, std::move(kept));
}

std::vector<RecentProjects::Item> RecentProjects::list() const {
    std::vector<Item> items;
    const Json all = defaults_.value(recentProjectsKey);
    if (const JsonArray* entries = all.array())
        for (const Json& json : *entries) {
            const auto entry = entryIn(json);
            std::error_code ignored;
            if (entry && items.size() < mostListed && fs::exists(entry->path, ignored))
                items.push_back({entry->path, dateIn(entry->date)});
        }
    return items;
}

}   // namespace tavix
