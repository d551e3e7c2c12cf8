// What a piece of music looks like: its waveform, and what was heard in it. Made off the main thread.
#pragma once

#include "Editor/EditorDomain/Timeline/Waveform.h"
#include "TavixCore/Document/BeatAnalysis.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

class QObject;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

// Of the document that is open; empty where it has no music.
std::filesystem::path musicFileOf(const CompositionEditorModel& model);

struct MusicPicture {
    std::shared_ptr<const Waveform> wave;   // null: it cannot be heard
    std::optional<BeatAnalysis> heard;      // where an analysis lies beside the file
};

// Throws nothing: what cannot be read has no picture. Takes a second for some minutes of music.
MusicPicture pictureOfMusic(const std::filesystem::path& file);

// Comes back on the main thread, unless the receiver has gone.
void loadMusicPicture(
    const std::filesystem::path& file, QObject* receiver, std::function<void(const MusicPicture&)> then);

}   // namespace tavix::editor
