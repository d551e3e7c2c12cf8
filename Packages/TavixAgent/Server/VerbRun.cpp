#include "TavixAgent/Server/VerbRun.h"

#include "TavixAgent/Server/LineReader.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Support/JsonParser.h"

#include <algorithm>
#include <string_view>
#include <sys/resource.h>

namespace tavix {
namespace {

constexpr std::size_t mostLineBytes = 1u << 20;
constexpr rlim_t mostMemoryBytes = 6ull << 30, mostFileBytes = 8ull << 30;

void limit(pid_t process, __rlimit_resource resource, rlim_t most) {
    const rlimit value{most, most};
    ::prlimit(process, resource, &value, nullptr);   // a limit that is lower already stays
}

// Hands on the lines of progress among those of a verb's output.
class ProgressWatch {
public:
    explicit ProgressWatch(const VerbRequest& request) : request_(request), lines_(mostLineBytes) {}

    void take(std::string_view piece) {
        lines_.take(piece);
        while (const auto line = lines_.next()) {
            try {
                tell(parseJson(line->text));
            } catch (const Failure&) {
                continue;   // no line of progress
            }
        }
    }

private:
    void tell(const Json& json) const {
        const Json *event = json.find("event"), *fraction = json.find("fraction"),
                   *stage = json.find("stage");
        if (event && event->stringValue() == "progress" && fraction && fraction->doubleValue())
            request_.onProgress(*fraction->doubleValue(), stage ? stage->stringValue().value_or("") : "");
    }

    const VerbRequest& request_;
    LineReader lines_;
};

}   // namespace

std::optional<Json> VerbOutcome::json() const {
    const std::string_view text = out;
    for (const std::string_view part : {text,
             text.substr(text.find_last_of('\n', text.size() - std::min<std::size_t>(text.size(), 2)) + 1)}) {
        try {
            return parseJson(part);
        } catch (const Failure&) {
            continue;
        }
    }
    return std::nullopt;
}

std::string VerbOutcome::complaint() const {
    if (ranOutOfTime) return "That took too long and was ended; ask for less, as a shorter range.";
    if (wasStopped) return "That was stopped, and nothing was written.";
    std::string sentence = err;
    constexpr std::string_view label = "tavix: ";
    std::string told;
    for (std::size_t at = 0; at < sentence.size();) {
        const std::size_t end = std::min(sentence.find('\n', at), sentence.size());
        std::string line = sentence.substr(at, end - at);
        if (line.starts_with(label)) line.erase(0, label.size());
        if (!line.empty() && !line.starts_with("warning: ")) told += (told.empty() ? "" : "\n") + line;
        at = end + 1;
    }
    if (!told.empty()) return told;
    return status >= 128 ? "That ended by signal " + std::to_string(status - 128) +
                               "; it may need more memory than a call may take."
                         : "That could not be done.";
}

VerbOutcome runVerb(const VerbRequest& request, const std::stop_token& stop) {
    ProgressWatch watch(request);
    system::ProgramRequest program{.program = request.program,
        .arguments = request.words,
        .environment = {"TAVIX_ROOT=" + request.root.string(), "NO_COLOR=1"},
        .input = request.input,
        .mostSec = request.mostSec};
    program.onStart = [](pid_t process) {
        limit(process, RLIMIT_DATA, mostMemoryBytes);
        limit(process, RLIMIT_FSIZE, mostFileBytes);
    };
    if (request.onProgress) program.onOutput = [&](std::string_view piece) { watch.take(piece); };
    return {system::runProgram(program, stop)};
}

}   // namespace tavix
