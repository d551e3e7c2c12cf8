#include "TavixEditor/App/Studio.h"

#include "TavixLive/Stage/Stage.h"
#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Sound/PulseAudioOutput.h"
#include "TavixPlatform/System/InotifyWatcher.h"
#include "TavixPlatform/Text/FontBook.h"

#include <cstddef>
#include <span>
#include <system_error>
#include <utility>

namespace tavix::editor {

namespace {

// Of finished frames: a window stays within a few hundred megabytes.
constexpr std::size_t storeBytes = 56u << 20;

// Asks at every start, since a server may come and go.
class DesktopAudioOutput final : public media::AudioOutput {
public:
    explicit DesktopAudioOutput(system::SerialExecutor& sound) : heard_(sound, "Tavix"), silent_(sound) {}

    void start(const media::AudioFormat& format, Fill fill) override {
        stop();
        used_ = heard_.isReady() ? static_cast<media::AudioOutput*>(&heard_) : &silent_;
        used_->start(format, std::move(fill));
    }
    void stop() override {
        heard_.stop();
        silent_.stop();
    }
    double heardFrames() const override { return used_ ? used_->heardFrames() : 0; }

private:
    media::PulseAudioOutput heard_;
    NullAudioOutput silent_;
    media::AudioOutput* used_ = nullptr;
};

std::unique_ptr<media::AudioOutput> outputOf(Sound sound, system::SerialExecutor& executor) {
    if (sound == Sound::desktop) return std::make_unique<DesktopAudioOutput>(executor);
    return std::make_unique<NullAudioOutput>(executor);
}

std::unique_ptr<system::FolderWatcher> watcherOfSystem() {
    try {
        return std::make_unique<system::InotifyWatcher>();
    } catch (const std::system_error&) {
        return nullptr;   // what others write is noticed when the window comes to the front
    }
}

// The same that the command uses: what either of them has drawn serves the other.
std::optional<std::filesystem::path> pieceStoreOf(const system::StandardFolders& folders) {
    if (folders.cache.empty()) return std::nullopt;
    return folders.cache;
}

}   // namespace

Studio::Studio(const system::StandardFolders& userFolders, Sound sound)
    : output_(outputOf(sound, sound_)), watcher_(watcherOfSystem()), backups_(userFolders.state / "backups"),
      folders(userFolders), defaults(folders.config), recents(defaults),
      model({.executors = {main_, render_, workers_},
          .maker = std::make_shared<Stage>(
              Stage::Options{.storeBytes = storeBytes, .showsClear = true}, RenderLog{}),
          .output = output_.get(),
          .recents = &recents,
          .files = &files_,
          .watcher = watcher_.get(),
          .stateFolder = folders.state,
          .backups = &backups_,
          .pieceStore = pieceStoreOf(folders)}) {
    text::keepDefaultFontConfig();   // Qt asks it for the letters that its own font lacks
}

Studio::~Studio() = default;

void Studio::hear(const std::filesystem::path& sound) {
    if (model.state.isPlaying()) model.togglePlay();
    try {
        constexpr media::AudioFormat format{};
        const auto reader = std::make_shared<media::AudioReader>(sound, format);
        output_->start(format, [reader](std::span<float> interleaved) { return reader->read(interleaved); });
    } catch (const media::MediaError& error) {
        model.state.errorMessage = error.what();
    }
}

}   // namespace tavix::editor
