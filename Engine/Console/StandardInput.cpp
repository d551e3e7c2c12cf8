#include "Engine/Console/StandardInput.h"

#include "TavixBase/Failure.h"

#include <cerrno>
#include <system_error>
#include <unistd.h>

namespace tavix::engine {

std::string readStandardInput(std::size_t mostBytes) {
    std::string text;
    char block[65'536];
    for (;;) {
        const ssize_t count = ::read(STDIN_FILENO, block, sizeof block);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0)
            throw Failure("Standard input cannot be read: " + std::generic_category().message(errno) + ".");
        if (count == 0) return text;
        text.append(block, static_cast<std::size_t>(count));
        if (text.size() > mostBytes)
            throw Failure("Standard input holds more than " + std::to_string(mostBytes) +
                          " bytes, which is more than is read.");
    }
}

}   // namespace tavix::engine
