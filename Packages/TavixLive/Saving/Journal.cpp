#include "TavixLive/Saving/Journal.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixCore/Support/JsonWriter.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tavix {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view documentName = "unsaved.json", comingPrefix = ".coming-";
constexpr std::int64_t version = 1;

fs::path documentIn(const fs::path& folder) { return folder / documentName; }

// No other journal has it: another program has another number, or another time.
std::string freshName() {
    static std::atomic<int> count{0};   // of journals of this program
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    return std::to_string(now) + "-" + std::to_string(::getpid()) + "-" + std::to_string(++count);
}

Json written(const UnsavedWork& work) {
    JsonObject json{{"version", version}, {"assetRoot", work.assetRoot.string()},
        {"at", work.at.time_since_epoch().count()}, {"document", work.document()}};
    if (work.writtenText) json.set("writtenText", *work.writtenText);
    return json;
}

UnsavedWork readFrom(const fs::path& folder) {
    const Json json = parseJson(readBytes(documentIn(folder)));
    const Json *root = json.find("assetRoot"), *at = json.find("at"), *document = json.find("document");
    const Json *text = json.find("writtenText"), *known = json.find("version");
    if (!root || !root->text() || !at || !at->integerValue() || !document || !known ||
        known->integerValue() != version)
        throw Failure("\"" + documentIn(folder).string() + "\" is no journal of unsaved changes.");
    UnsavedWork work;
    work.assetRoot = *root->text();
    work.at = UnsavedWork::Time(std::chrono::seconds(*at->integerValue()));
    work.document = [document = *document] { return document; };
    if (text) work.writtenText = text->stringValue();
    return work;
}

void removeAll(const fs::path& folder) noexcept {
    std::error_code ignored;   // it is offered once more
    fs::remove(documentIn(folder), ignored);
    fs::remove_all(folder, ignored);
}

}   // namespace

Journal::Journal(const fs::path& journals) {
    std::error_code error;
    const std::string name = freshName();
    const fs::path coming = journals / (std::string(comingPrefix) + name);
    fs::create_directories(coming, error);
    if (!error) {
        lock_.emplace(coming);   // it stays with the folder, whatever its name
        folder_ = journals / name;
        fs::rename(coming, folder_, error);
    }
    if (error)
        throw Failure(
            "Cannot keep unsaved changes in \"" + journals.string() + "\": " + error.message() + ".");
}

Journal::~Journal() { removeAll(folder_); }

void Journal::write(const UnsavedWork& work) const {
    writeBytesAtomically(writeJson(written(work)), documentIn(folder_));
}

void Journal::clear() const noexcept {
    std::error_code ignored;
    fs::remove(documentIn(folder_), ignored);
}

std::vector<LostWork> LostWork::find(const fs::path& journals) {
    std::vector<LostWork> found;
    std::error_code error;
    for (fs::directory_iterator entry(journals, error), end; !error && entry != end; entry.increment(error)) {
        const fs::path& folder = entry->path();
        std::error_code ignored;
        if (!entry->is_directory(ignored) || folder.filename().string().starts_with(comingPrefix)) continue;
        auto lock = std::make_shared<BundleLock>(folder);
        if (!lock->isHeld()) continue;
        if (!isFile(documentIn(folder))) {
            removeAll(folder);
            continue;
        }
        try {
            found.push_back(LostWork(folder, std::move(lock), readFrom(folder)));
        } catch (const Failure&) {}   // perhaps of a later version of ours
    }
    std::ranges::stable_sort(found, std::greater(), &LostWork::at_);
    return found;
}

UnsavedWork LostWork::read() const { return readFrom(folder_); }

void LostWork::forget() const noexcept { removeAll(folder_); }

}   // namespace tavix
