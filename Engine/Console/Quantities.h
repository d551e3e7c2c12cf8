// Amounts as people write them: "10MB", "1.5GiB", "800k".
#pragma once

#include <cstdint>
#include <string>

namespace tavix::engine {

// Bytes: B, kB, MB and GB count in thousands, KiB, MiB and GiB in 1024; in any case. Throws `UsageError`, in
// which `option` is what takes the amount.
std::int64_t bytesNamed(const std::string& text, const std::string& option);

// Bits a second, in k and M.
std::int64_t bitsPerSecNamed(const std::string& text, const std::string& option);

// "9.8 MB", for people.
std::string shownBytes(std::int64_t bytes);

}   // namespace tavix::engine
