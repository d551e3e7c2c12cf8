#include "TavixPlatform/Text/FontBook.h"

#include "TavixPlatform/Text/FontCore.h"
#include "TavixPlatform/Text/FontStandIns.h"

namespace tavix::text {

FontBook::FontBook() : core_(std::make_shared<FontCore>(nullptr)) {}
FontBook::FontBook(const std::vector<std::filesystem::path>& folders)
    : core_(std::make_shared<FontCore>(&folders)) {}
FontBook::~FontBook() = default;

FontBook& FontBook::ofThisMachine() {
    static FontBook book;
    return book;
}

std::optional<std::string> FontBook::addFile(const std::filesystem::path& file) {
    return core_->addFile(file);
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
