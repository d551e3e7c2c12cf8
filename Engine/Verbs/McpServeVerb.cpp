#include "Engine/Verbs/McpServeVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/System/Interruption.h"
#include "TavixAgent/Server/LineReader.h"
#include "TavixAgent/Server/McpServer.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <poll.h>
#include <unistd.h>

namespace tavix::engine {

namespace {

constexpr int lookMs = 200;   // for a signal

// False when nobody reads any more.
bool writeLine(const std::string& line) {
    const std::string text = line + "\n";
    for (std::size_t at = 0; at < text.size();) {
        const ssize_t count = ::write(STDOUT_FILENO, text.data() + at, text.size() - at);
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) at += static_cast<std::size_t>(count);
    }
    return true;
}

// What has come, or nothing at the end of the input.
std::optional<std::string> nextPiece() {
    std::array<char, 65'536> block;
    for (;;) {
        const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return std::nullopt;
        return std::string(block.data(), static_cast<std::size_t>(count));
    }
}

bool hasInput() {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    return ::poll(&input, 1, lookMs) > 0;
}

}   // namespace

void McpServeVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.text("--root", root_, "FOLDER",
        "The folder that is read and written, and nothing outside it; this one by default.");
    arguments.jsonFlag(terminal);
}

void McpServeVerb::run(Terminal&) {
    const Interruption interruption;
    const RootFolder root(root_.value_or("."));
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    std::atomic<bool> isRead = true;
    McpServer server({program, root}, [&](const std::string& line) {
        if (isRead && !writeLine(line)) isRead = false;
    });
    LineReader lines(McpServer::mostLineBytes);
    while (isRead && !interruption.token().stop_requested()) {
        if (!hasInput()) continue;
        const auto piece = nextPiece();
        if (!piece) return;
        lines.take(*piece);
        while (const auto line = lines.next()) {
            if (line->wasTooLong)
                server.refuseLongLine();
            else
                server.take(line->text);
        }
    }
}

}   // namespace tavix::engine
