#include "TavixRender/Encoding/HiddenFile.h"

#include <system_error>
#include <utility>

namespace tavix {

HiddenFile::HiddenFile(std::filesystem::path beside, const std::string& name)
    : beside_(std::move(beside)), path_(beside_.parent_path() / name) {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

HiddenFile::~HiddenFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

std::string HiddenFile::unnamed(std::string sentence) const {
    const std::string hidden = path_.string(), shown = beside_.string();
    for (auto at = sentence.find(hidden); at != std::string::npos;
         at = sentence.find(hidden, at + shown.size()))
        sentence.replace(at, hidden.size(), shown);
    return sentence;
}

}   // namespace tavix
