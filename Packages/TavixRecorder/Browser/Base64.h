// Bytes as text, by RFC 4648, section 4.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::recorder {

std::string base64(std::string_view bytes);
// Throws a `Failure` for what is no such text.
std::vector<std::byte> fromBase64(std::string_view text);

}   // namespace tavix::recorder
