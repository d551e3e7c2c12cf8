#include "TavixPlatform/Text/FontBook.h"

#include "TavixPlatform/Text/FontCore.h"
#include "TavixPlatform/Text/FontStandIns.h"

#include <algorithm>
#include <utility>

namespace tavix::text {

namespace {

const std::shared_ptr<FontCore>& coreOfThisMachine() {
    // Never taken apart, which would take a millisecond of the end of every command that sets text.
    static const auto& core =
        *new std::shared_ptr<FontCore>(std::make_shared<FontCore>(FontPlaces::ofThisMachine()));
    return core;
}

}   // namespace

FontBook::FontBook() : FontBook(coreOfThisMachine()) {}
FontBook::FontBook(const std::vector<std::filesystem::path>& folders)
    : FontBook(std::make_shared<FontCore>(FontPlaces::of(folders))) {}
FontBook::FontBook(std::shared_ptr<FontCore> core) : core_(std::move(core)) {}
FontBook::~FontBook() = default;

const FontBook* FontBook::withFile(const std::filesystem::path& file) const {
    const std::lock_guard lock(mutex_);
    const auto [entry, isNew] = filesRead_.try_emplace(file);
    if (isNew)
        if (auto core = FontCore::withFile(core_->places(), file))
            entry->second.reset(new FontBook(std::move(core)));
    return entry->second.get();
}

const std::string& FontBook::nameOfFile() const { return core_->nameOfFile(); }

std::vector<std::filesystem::path> FontBook::files() const {
    std::vector<std::filesystem::path> files;
    for (const FaceRef& face : core_->faces()) files.emplace_back(face->file);
    std::ranges::sort(files);
    files.erase(std::unique(files.begin(), files.end()), files.end());
    return files;
}

FoundFont FontBook::named(std::string_view name, double sizePx) const {
    if (auto font = core_->find(name, sizePx)) return {std::move(*font), false};
    if (const FontStandIn* row = standInFor(name))
        if (auto font = core_->anyInFamily(row->family, weightToldBy(name), sizePx))
            return {std::move(*font), true};
    if (auto font = core_->anyInFamily(interfaceFamily, weightToldBy(name), sizePx))
        return {std::move(*font), true};
    return {interfaceFont(sizePx), true};
}

Font FontBook::interfaceFont(double sizePx) const {
    if (auto font = core_->anyInFamily(interfaceFamily, 400, sizePx)) return std::move(*font);
    return core_->first(sizePx);
}

}   // namespace tavix::text
