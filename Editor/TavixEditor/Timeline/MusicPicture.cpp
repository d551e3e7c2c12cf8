#include "TavixEditor/Timeline/MusicPicture.h"

#include "TavixCore/Support/Document.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixPlatform/Media/AudioReader.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>

#include <exception>
#include <vector>

namespace tavix::editor {

namespace {

constexpr int rateHz = 11025;   // enough to see
constexpr std::size_t blockSamples = 1 << 16;
constexpr double longestSec = 1800;

}   // namespace

std::filesystem::path musicFileOf(const CompositionEditorModel& model) {
    const auto& audio = model.state.edited().spec.audio;
    if (!audio || !audio->music || audio->music->path.empty()) return {};
    const std::filesystem::path file(audio->music->path);
    const auto& bundle = model.state.bundle();
    return file.is_relative() && bundle ? *bundle / file : file;
}

MusicPicture pictureOfMusic(const std::filesystem::path& file) {
    MusicPicture picture;
    try {
        media::AudioReader reader(file, {.sampleRate = rateHz, .channels = 1});
        std::vector<float> samples;
        while (double(samples.size()) < longestSec * rateHz) {
            const std::size_t before = samples.size();
            samples.resize(before + blockSamples);
            const std::size_t got = reader.read(std::span(samples).subspan(before));
            samples.resize(before + got);
            if (got < blockSamples) break;
        }
        picture.wave = std::make_shared<const Waveform>(samples, rateHz);
        if (const auto beside = BeatAnalysis::sidecarPath(file); std::filesystem::exists(beside))
            picture.heard = decodeFile<BeatAnalysis>(beside);
    } catch (const std::exception&) {
        // Lint tells of music that cannot be read; here there is nothing to be seen.
    }
    return picture;
}

void loadMusicPicture(
    const std::filesystem::path& file, QObject* receiver, std::function<void(const MusicPicture&)> then) {
    QThreadPool::globalInstance()->start(
        [file, guarded = QPointer<QObject>(receiver), then = std::move(then)] {
            MusicPicture picture = pictureOfMusic(file);
            QMetaObject::invokeMethod(
                qApp,
                [picture = std::move(picture), guarded, then] {
                    if (guarded) then(picture);
                },
                Qt::QueuedConnection);
        });
}

}   // namespace tavix::editor
