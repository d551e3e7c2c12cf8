#include "TavixBase/SortingKey.h"

#include <cstdlib>
#include <memory>
#include <utf8proc.h>

namespace tavix {

std::string sortingKey(std::string_view name) {
    utf8proc_uint8_t* folded = nullptr;
    const auto length = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(name.data()),
        static_cast<utf8proc_ssize_t>(name.size()), &folded,
        static_cast<utf8proc_option_t>(
            UTF8PROC_STABLE | UTF8PROC_COMPAT | UTF8PROC_DECOMPOSE | UTF8PROC_STRIPMARK | UTF8PROC_CASEFOLD));
    if (length < 0) return std::string(name);
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owned(folded, std::free);
    return {reinterpret_cast<const char*>(folded), static_cast<std::size_t>(length)};
}

}   // namespace tavix
