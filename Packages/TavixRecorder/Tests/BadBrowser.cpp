// A browser that speaks the pipe badly, in the way that TAVIX_BAD_BROWSER says, once it has answered the
// first command.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {

void say(const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        const ssize_t count = ::write(4, text.data() + at, text.size() - at);
        if (count <= 0) ::_exit(1);
        at += static_cast<std::size_t>(count);
    }
}

void hear() {
    for (char byte = 1; byte != 0;)
        if (::read(3, &byte, 1) != 1) ::_exit(0);
}

std::string message(const std::string& json) { return json + '\0'; }

}   // namespace

int main() {
    const char* named = std::getenv("TAVIX_BAD_BROWSER");
    const std::string manner = named ? named : "";
    std::signal(SIGTERM, SIG_IGN);
    hear();
    if (manner == "silent") ::pause();
    say(message(R"({"id":1,"result":{}})"));
    hear();
    if (manner == "hangs") ::pause();
    if (manner == "leaves") {
        std::fputs("first\nout of memory\n", stderr);
        return 3;
    }
    if (manner == "dies") {
        std::signal(SIGSEGV, SIG_DFL);
        std::raise(SIGSEGV);
    }
    if (manner == "babbles") say(message("{\"id\":2,"));
    if (manner == "answers late and others") {
        say(message(R"({"id":77,"result":{}})") + message(R"({"id":"2"})") + message("[]") + message("3") +
            message(R"({"method":5})") + message(R"({"id":2,"result":{"at":"last"}})"));
        ::pause();
    }
    if (manner == "refuses") say(message(R"({"id":2,"error":{"code":-32601,"message":"'X' wasn't found"}})"));
    const std::string noise(1 << 16, 'x');
    while (manner == "floods") say(message(R"({"method":"Noise.made","params":{"text":")" + noise + "\"}}"));
    while (manner == "never ends") say(noise);
    ::pause();
}
