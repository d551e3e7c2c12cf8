#include "TavixRecorder/Browser/Browser.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/JsonWriter.h"

#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>

namespace tavix::recorder {

namespace {

namespace fs = std::filesystem;

constexpr const char* usualNames[] = {"chromium-headless-shell", "chrome-headless-shell", "headless_shell"};

// Frames come when they are asked for, with everything that belongs to them drawn. Animations run where the
// page's clock is, not on a thread with a clock of its own. Nothing goes out that the page did not ask for.
constexpr const char* usualArguments[] = {
    "--remote-debugging-pipe",
    "--enable-begin-frame-control",
    "--run-all-compositor-stages-before-draw",
    "--disable-new-content-rendering-timeout",
    "--disable-threaded-animation",
    "--disable-threaded-scrolling",
    "--disable-checker-imaging",
    "--disable-image-animation-resync",
    // Else a frame waits for the next movement of a finger that scrolls, which comes after the frame, and
    // once in a while both wait for ever.
    "--disable-features=WaitForLateScrollEvents",
    "--disable-gpu",
    "--enable-unsafe-swiftshader",
    "--hide-scrollbars",
    "--mute-audio",
    "--autoplay-policy=no-user-gesture-required",
    "--force-color-profile=srgb",
    "--disable-lcd-text",
    "--font-render-hinting=none",
    "--lang=en-US",
    "--js-flags=--random-seed=20011",
    "--enable-blink-features=ComputedAccessibilityInfo",
    "--block-new-web-contents",
    "--no-first-run",
    "--no-default-browser-check",
    "--disable-background-networking",
    "--disable-component-update",
    "--disable-breakpad",
    "--disable-sync",
    "--disable-quic",
    "--disable-extensions",
    "--disable-dev-shm-usage",
    "--deny-permission-prompts",
    "--allow-pre-commit-input",
};

constexpr std::string_view profilePrefix = "tavix-browser-";

// Removes what killed runs left: folders that nobody holds. A young one may be about to be held.
void sweep(const fs::path& place) {
    std::error_code error;
    const auto young = fs::file_time_type::clock::now() - std::chrono::minutes(1);
    for (fs::directory_iterator entry(place, error), end; !error && entry != end; entry.increment(error)) {
        if (!entry->path().filename().string().starts_with(profilePrefix)) continue;
        std::error_code ignored;
        if (fs::last_write_time(entry->path(), ignored) > young || ignored) continue;
        const int folder = ::open(entry->path().c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (folder < 0) continue;
        if (::flock(folder, LOCK_EX | LOCK_NB) == 0) fs::remove_all(entry->path(), ignored);
        ::close(folder);
    }
}

std::string resolverRules(const std::vector<std::string>& hosts) {
    std::string rules = "MAP * ~NOTFOUND";
    for (const std::string& host : hosts) rules += ", EXCLUDE " + host;
    return rules;
}

}   // namespace

std::optional<fs::path> findBrowser() {
    if (const char* named = std::getenv("TAVIX_BROWSER"); named && *named) return system::findProgram(named);
    for (const char* name : usualNames)
        if (auto found = system::findProgram(name)) return found;
    return std::nullopt;
}

ProfileFolder::ProfileFolder() {
    std::error_code error;
    fs::path place = fs::temp_directory_path(error);
    if (error) place = "/tmp";
    sweep(place);
    std::string name = place / (std::string(profilePrefix) + "XXXXXX");
    if (!::mkdtemp(name.data()))
        throw Failure("No folder for the browser's profile can be made in \"" + place.string() + "\".");
    path_ = name;
    lock_ = ::open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (lock_ >= 0) ::flock(lock_, LOCK_EX | LOCK_NB);
}

ProfileFolder::~ProfileFolder() {
    // What the browser was writing when it ended may still come.
    std::error_code error;
    for (int i = 0; i < 3; ++i)
        if (fs::remove_all(path_, error); !error) break;
    if (lock_ >= 0) ::close(lock_);
}

bool Browser::runsWithoutSandbox() { return ::geteuid() == 0; }

system::ChildSettings Browser::childSettings(const Settings& settings, const fs::path& home) {
    system::ChildSettings child{.program = settings.program,
        .arguments = {std::begin(usualArguments), std::end(usualArguments)},
        .pipes = {{DevTools::toBrowser, system::ChildPipe::Direction::toChild},
            {DevTools::fromBrowser, system::ChildPipe::Direction::fromChild},
            {DevTools::complaints, system::ChildPipe::Direction::fromChild}},
        .environment = {"HOME=" + home.string(), "TMPDIR=" + home.string(), "TZ=UTC"}};
    child.arguments.push_back("--user-data-dir=" + (home / "profile").string());
    child.arguments.push_back("--host-resolver-rules=" + resolverRules(settings.hosts));
    child.arguments.push_back("--force-device-scale-factor=" + writeJson(settings.pixelsPerPoint));
    if (runsWithoutSandbox()) child.arguments.push_back("--no-sandbox");
    return child;
}

Browser::Browser(const Settings& settings, std::stop_token stop)
    : process_(childSettings(settings, profile_.path())), devTools_(process_, std::move(stop)) {
    devTools_.call("Browser.getVersion", {}, settings.startBoundSec);
}

Browser::~Browser() { process_.end(0); }

}   // namespace tavix::recorder
