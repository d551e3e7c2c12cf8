// The threads, the sound and the model behind the window.
#pragma once

#include "TavixEditor/App/QtMainExecutor.h"
#include "TavixLive/Files/Backups.h"
#include "TavixLive/Files/RecentProjects.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixLive/Playback/NullAudioOutput.h"
#include "TavixPlatform/System/FolderWatcher.h"
#include "TavixPlatform/System/StandardFolders.h"
#include "TavixPlatform/System/WorkerThread.h"

#include <filesystem>
#include <memory>

namespace tavix::editor {

// Where sound is heard: the desktop's server where one answers, otherwise nowhere, in time.
enum class Sound { desktop, nowhere };

class Studio {
public:
    Studio(const system::StandardFolders& userFolders, Sound sound);
    ~Studio();

private:
    // In the order in which they are needed: those below go first. Work comes back to the main executor, so
    // it outlives the threads.
    QtMainExecutor main_;
    system::WorkerPool workers_{2};   // an export and an analysis at once
    system::WorkerThread render_, sound_, files_;
    std::unique_ptr<media::AudioOutput> output_;
    std::unique_ptr<system::FolderWatcher> watcher_;   // none where the system lets us have no more
    Backups backups_;

public:
    const system::StandardFolders folders;
    UserDefaults defaults;
    RecentProjects recents;
    CompositionEditorModel model;

    // Lets a file be heard from its start, in place of the film. What cannot be read is told as the model's
    // error.
    void hear(const std::filesystem::path& sound);

    QtMainExecutor& main() { return main_; }
    system::Executor& workers() { return workers_; }
    system::Executor& files() { return files_; }
};

}   // namespace tavix::editor
