// Where a page comes from, and where it may go.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::recorder {

// "https://shop.example" of "HTTPS://shop.example:443/cart?x=1#top": scheme and host in small letters, and
// the port where it is not the scheme's own. A web socket counts as the page's kind of connection. Nothing
// for what is no such address.
std::optional<std::string> originOf(std::string_view url);
// "shop.example" of such an origin.
std::string hostOf(std::string_view origin);

class AllowedOrigins {
public:
    AllowedOrigins(std::string own, const std::vector<std::string>& others);   // all as `originOf` gives them

    // What stays inside the browser, as data: and blob:, is always allowed, files never.
    bool allows(std::string_view url) const;
    std::vector<std::string> hosts() const;

private:
    std::vector<std::string> origins_;
};

}   // namespace tavix::recorder
