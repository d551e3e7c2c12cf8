#include "Engine/Console/Terminal.h"

#include "Engine/Console/FindingForms.h"
#include "Engine/Console/Printable.h"
#include "Engine/System/SystemWatch.h"
#include "TavixAgent/Check/FindingReport.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixRender/Assets/RenderLog.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tavix::engine {

namespace {

constexpr int barCells = 32;
constexpr const char* red = "\033[31;1m";
constexpr const char* yellow = "\033[33;1m";
constexpr const char* plain = "\033[0m";

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool writeOut(const std::string& text) {
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
}

}   // namespace

Terminal::Terminal() : isRich_(::isatty(STDERR_FILENO) == 1 && !isSet("NO_COLOR")) {}

Terminal::~Terminal() { clearBar(); }

void Terminal::result(const std::string& text) {
    clearBar();
    SystemWatch::require();
    if (writeOut(printable(text))) return;
    throw Failure("Cannot write to standard output: " + std::generic_category().message(errno) + ".");
}

void Terminal::result(const Json& json) { result(writeJson(json) + "\n"); }

void Terminal::report(JsonObject json) {
    json.set("warnings", findingsAsJson(warnings_));
    if (!notes_.empty()) json.set("notes", findingsAsJson(notes_));
    result(Json(std::move(json)));
}

void Terminal::reportRecord(const Json& record) {
    if (const JsonObject* object = record.object(); object && !warnings_.empty()) return report(*object);
    result(record);
}

void Terminal::tell(const std::string& line) {
    if (mode_ != Mode::people) return;
    clearBar();
    // Whoever closed standard output does not want to know; the work goes on.
    if (!writeOut(printableLine(line) + "\n")) std::clearerr(stdout);
}

void Terminal::tell(const Finding& finding) {
    if (finding.code == RenderCode::written)
        return;   // of the unfinished file; the verb tells of the finished one
    if (finding.level == Finding::Level::note) notes_.push_back(finding);
    if (finding.level != Finding::Level::warning) return tell(markedLine(finding));
    if (mode_ != Mode::people) return warn(finding);
    warnings_.push_back(finding);
    tell(markedLine(finding));
}

std::function<void(const Finding&)> Terminal::log() {
    return [this](const Finding& finding) { tell(finding); };
}

void Terminal::warn(Finding finding) {
    const std::string shown = finding.message;
    warn(std::move(finding), shown);
}

void Terminal::warn(Finding finding, const std::string& shown) {
    message(yellow, "tavix: warning: ", shown);
    warnings_.push_back(std::move(finding));
}

void Terminal::warn(std::string_view code, std::string sentence, std::string file) {
    warn(Finding::warning(code, std::move(sentence), std::move(file)));
}

void Terminal::complain(const std::string& sentence) { message(red, "tavix: ", sentence); }

void Terminal::message(const char* color, const std::string& label, const std::string& sentence) {
    clearBar();
    const std::string head = isRich_ ? color + label + plain : label;
    std::fprintf(stderr, "%s%s\n", head.c_str(), printable(sentence).c_str());
}

void Terminal::progress(double fraction) {
    if (!isRich_ || mode_ != Mode::people) return;
    const int filled = std::clamp(static_cast<int>(fraction * barCells), 0, barCells);
    std::string bar;
    for (int i = 0; i < barCells; ++i) bar += i < filled ? "█" : "░";
    std::fprintf(stderr, "\r%s %3d%%", bar.c_str(), static_cast<int>(fraction * 100));
    std::fflush(stderr);
    hasBar_ = true;
}

void Terminal::clearBar() {
    if (hasBar_) std::fputs("\r\033[K", stderr);
    hasBar_ = false;
}

}   // namespace tavix::engine
