#include "TavixRender/Brand/BrandFiles.h"

#include "TavixBase/Failure.h"
#include "TavixBase/TextTrimming.h"
#include "TavixCore/Support/FileBytes.h"

#include <algorithm>
#include <system_error>

namespace tavix::BrandFiles {

namespace fs = std::filesystem;

std::vector<fs::path> under(const fs::path& folder) {
    constexpr std::size_t mostFiles = 200'000;
    std::vector<fs::path> files;
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error), end;
    for (; !error && entry != end && files.size() < mostFiles; entry.increment(error)) {
        std::error_code ignored;
        if (entry->is_regular_file(ignored)) files.push_back(entry->path());
    }
    std::ranges::sort(files);
    return files;
}

std::string lowerName(const fs::path& file) { return lowered(file.filename().string()); }

std::string lowerExtension(const fs::path& file) {
    const std::string extension = lowered(file.extension().string());
    return extension.empty() ? extension : extension.substr(1);
}

std::uintmax_t sizeBytes(const fs::path& file) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    return error ? 0 : size;
}

std::string textOf(const fs::path& file) {
    constexpr std::size_t mostBytes = 4u << 20;
    try {
        return readBytes(file, mostBytes);
    } catch (const Failure&) {
        return {};
    }
}

}   // namespace tavix::BrandFiles
