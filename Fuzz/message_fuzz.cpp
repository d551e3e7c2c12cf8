// Any bytes are lines, and any line is a message, an answer to it or nothing: one line each, which reads
// again.
#include "TavixAgent/Server/JsonRpc.h"
#include "TavixAgent/Server/LineReader.h"
#include "TavixCore/Support/JsonParser.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

void take(const std::string& line) {
    try {
        if (const auto message = tavix::rpc::parsed(line))
            if (message->isRequest()) tavix::parseJson(tavix::rpc::resultLine(*message->id, message->params));
    } catch (const tavix::rpc::Rejection& rejection) {
        const std::string answer = tavix::rpc::errorLine(rejection.id, rejection.code, rejection.sentence);
        check(answer.find('\n') == std::string::npos);
        tavix::parseJson(answer);
    }
}

}   // namespace

// The bytes come in pieces of the size that the first one says.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    tavix::LineReader reader(4096);
    const std::size_t step = 1 + data[0];
    for (std::size_t at = 0; at < bytes.size(); at += step) {
        reader.take(bytes.substr(at, step));
        while (const auto line = reader.next())
            if (!line->wasTooLong) take(line->text);
    }
    return 0;
}
