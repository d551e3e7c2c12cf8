// Any bytes from a browser's pipe, in any pieces, are the messages between their zero bytes, or a failure
// with a sentence; each message is JSON or is refused with one.
#include "TavixBase/Failure.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixRecorder/Browser/MessageSplitter.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

// The first byte says how long the pieces are.
void run(std::string_view bytes) {
    if (bytes.empty()) return;
    const std::size_t piece = 1 + static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    constexpr std::size_t bound = 1000;
    tavix::recorder::MessageSplitter splitter(bound);
    std::string joined;
    for (std::size_t at = 0; at < bytes.size(); at += piece) {
        splitter.add(bytes.substr(at, piece));
        while (const auto message = splitter.next()) {
            check(message->size() <= bound + piece && message->find('\0') == std::string::npos);
            joined += *message + '\0';
            try {
                tavix::parseJson(*message);
            } catch (const tavix::Failure&) {}
        }
        const std::size_t end = bytes.substr(0, at + piece).rfind('\0');
        check(joined == bytes.substr(0, end == std::string_view::npos ? 0 : end + 1));
    }
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        run({reinterpret_cast<const char*>(data), size});
    } catch (const tavix::Failure& failure) {
        check(failure.message().ends_with('.'));
    }
    return 0;
}
