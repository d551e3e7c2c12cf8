// A folder of files as a web site. Nothing listens for it: the browser's requests are answered over its pipe,
// at an origin that exists nowhere else.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tavix::recorder {

struct SiteAnswer {
    int status = 404;
    std::string contentType, contentRange;   // the range is empty where all of it is sent
    std::string body;
};

class SiteFolder {
public:
    // A name under "localhost" counts as safe, so that pages may do what they may do over https.
    static constexpr std::string_view origin = "http://app.localhost";

    // Of a folder, or of the one that a page's file lies in. Throws `Failure` where there is no page.
    explicit SiteFolder(const std::filesystem::path& pageOrFolder);

    // Where a page of it starts: the file's own name, or the folder.
    std::string startUrl() const;
    // Files within the folder alone; a link out of it leads nowhere. `range` as in "bytes=0-99", or empty.
    SiteAnswer answer(std::string_view url, std::string_view range) const;

private:
    std::filesystem::path root_;
    std::string startName_;
};

}   // namespace tavix::recorder
