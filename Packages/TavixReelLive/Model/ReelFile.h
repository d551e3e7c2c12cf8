// The files behind a reel that is edited: saving its document, taking in what other programs write, and the
// journal of what is not saved. One for each reel that is open.
#pragma once

#include "TavixLive/Files/Backups.h"
#include "TavixLive/Saving/JournalKeeper.h"
#include "TavixPlatform/System/FolderWatcher.h"
#include "TavixReelLive/Model/ReelEditorState.h"
#include "TavixReelLive/Project/ReelOnDisk.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tavix {

// Used on the main executor. Its end is a healthy one: no journal stays.
class ReelFile {
public:
    struct Surroundings {
        system::SerialExecutor& main;
        system::Executor& files;
        system::FolderWatcher* watcher;   // none: what others write is noticed when saving, or asked
        std::filesystem::path journals;   // empty: nothing outlives a crash
        const Backups* backups;           // none: what saving replaces is gone
        RenderLog log;
        double journalDelaySec;
    };
    struct Place {
        std::filesystem::path project;   // the bundle, or the video
        std::filesystem::path video, timeline, effects;
    };
    // What it asks of the model.
    struct Owner {
        ReelEditorState& state;
        std::function<void(EffectsSpec)> takeIn;   // what another program changed, as a step
        std::function<void()> reopenRecording;     // it is another one now, or its sidecar is
        std::function<void()> drawAnew;            // a file that the document names is another one now
        std::function<bool()> isInHand;            // a drag has not ended: what others write waits for that
    };
    using Done = std::function<void()>;

    ReelFile(const Surroundings& surroundings, Place place, Owner owner, ReelOnDisk onDisk);

    void save(Done then, IfChanged ifChanged);
    void lookAtFile() { look(false); }
    void takeInFile() { look(true); }   // once everything is chosen
    void noteEdit();                    // the document of the state is another one
    void noteDragEnd();
    // What was brought back goes for good once it is in the journal of this session.
    void setOnKept(Done onKept) { onKept_ = std::move(onKept); }

private:
    struct Look;

    const EffectsSpec& edited() const { return owner_.state.spec(); }
    UnsavedWork unsavedWork() const;
    void noteUnsaved();
    void watch();
    void noteEvent(const std::string& name);
    bool isNamed(const std::string& name) const;
    void look(bool isAsked);
    void finishLook(system::Outcome<Look>& outcome);
    void clearProblem();

    Surroundings around_;
    Place place_;
    Owner owner_;
    std::shared_ptr<const ReelOnDisk> onDisk_;
    std::optional<JournalKeeper> journal_;
    Done onKept_, saveAgain_;
    system::FolderWatcher::Watch watch_;
    bool isSaving_ = false, isLooking_ = false, isLookDue_ = false, isLookAsked_ = false;
    std::optional<std::string> problem_;   // with the file, that is told as the error message
    system::Timer lookTimer_, recordingTimer_, pictureTimer_;
    system::Lifeline lifeline_;
};

}   // namespace tavix
