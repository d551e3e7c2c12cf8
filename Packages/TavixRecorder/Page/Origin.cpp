#include "TavixRecorder/Page/Origin.h"

#include <algorithm>
#include <utility>

namespace tavix::recorder {

namespace {

std::string lower(std::string_view text) {
    std::string small(text);
    for (char& c : small)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return small;
}

struct Scheme {
    std::string_view name, countsAs, port;
};
constexpr Scheme schemes[] = {
    {"http", "http", "80"}, {"https", "https", "443"}, {"ws", "http", "80"}, {"wss", "https", "443"}};

constexpr std::string_view insideSchemes[] = {"data:", "blob:", "about:"};

}   // namespace

std::optional<std::string> originOf(std::string_view url) {
    const std::size_t colon = url.find("://");
    if (colon == url.npos) return std::nullopt;
    const std::string scheme = lower(url.substr(0, colon));
    const auto known = std::ranges::find(schemes, scheme, &Scheme::name);
    if (known == std::end(schemes)) return std::nullopt;
    std::string_view place = url.substr(colon + 3);
    place = place.substr(0, place.find_first_of("/?#\\"));
    if (const std::size_t at = place.rfind('@'); at != place.npos) place.remove_prefix(at + 1);
    const std::size_t bracket = place.rfind(']');   // of an address as in [::1]:8080
    const std::size_t port = place.find(':', bracket == place.npos ? 0 : bracket);
    const std::string host = lower(place.substr(0, port));
    if (host.empty() || host.find_first_of(" \t,\"'<>") != host.npos) return std::nullopt;
    const std::string_view number = port == place.npos ? std::string_view() : place.substr(port + 1);
    if (number.find_first_not_of("0123456789") != number.npos) return std::nullopt;
    std::string origin = std::string(known->countsAs) + "://" + host;
    if (!number.empty() && number != known->port) origin.append(":").append(number);
    return origin;
}

std::string hostOf(std::string_view origin) {
    std::string_view place = origin.substr(origin.find("://") + 3);
    const std::size_t bracket = place.rfind(']');
    place = place.substr(0, place.find(':', bracket == place.npos ? 0 : bracket));
    return std::string(place);
}

AllowedOrigins::AllowedOrigins(std::string own, const std::vector<std::string>& others) : origins_(others) {
    origins_.insert(origins_.begin(), std::move(own));
}

bool AllowedOrigins::allows(std::string_view url) const {
    if (std::ranges::any_of(insideSchemes, [&](auto scheme) { return url.starts_with(scheme); })) return true;
    const auto origin = originOf(url);
    return origin && std::ranges::find(origins_, *origin) != origins_.end();
}

std::vector<std::string> AllowedOrigins::hosts() const {
    std::vector<std::string> hosts;
    for (const std::string& origin : origins_) hosts.push_back(hostOf(origin));
    return hosts;
}

}   // namespace tavix::recorder
