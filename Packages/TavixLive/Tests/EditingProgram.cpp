// A session that edits and saves until it is killed, and says what it has done:
//
//     tavix_live_editing BUNDLE STATE-FOLDER JOURNAL-DELAY SEED
//
// "edit N", "kept N" (what is unsaved would outlive it) and "saved N", each line written before anything else
// happens; N counts through all sessions.
#include "EmptyMaker.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixPlatform/System/EventLoop.h"
#include "TavixPlatform/System/WorkerThread.h"

#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <unistd.h>

namespace tavix {
namespace {

void say(const char* what, std::int64_t number) {
    const std::string line = std::string(what).append(" ").append(std::to_string(number)).append("\n");
    if (::write(STDOUT_FILENO, line.data(), line.size()) != ssize_t(line.size())) std::_Exit(1);
}

class Session {
public:
    Session(std::string bundle, const std::filesystem::path& stateFolder, double delaySec, unsigned seed)
        : bundle_(std::move(bundle)), backups_(stateFolder / "backups"), random_(seed),
          model_(services(stateFolder, delaySec)), kept_(watch([this] { sayKept(); }, model_.state.isKept)) {}

    void run() {
        main_.post([this] {
            model_.findLostWork([this] {
                if (model_.state.lostWork().empty())
                    model_.open(bundle_, [this] { step(); });
                else
                    model_.recoverLostWork(0, [this] { step(); });
            });
        });
        main_.run();
    }

private:
    CompositionEditorModel::Services services(const std::filesystem::path& stateFolder, double delaySec) {
        CompositionEditorModel::Services services{
            {main_, render_, workers_}, std::make_shared<testing::EmptyMaker>()};
        services.files = &files_;
        services.stateFolder = stateFolder;
        services.backups = &backups_;
        services.journalDelaySec = delaySec;
        return services;
    }
    std::int64_t number() const { return model_.state.edited().spec.seed; }
    void sayKept() {
        if (model_.state.isKept()) say("kept", number());
    }
    void step() {
        if (!model_.state.isLoaded()) std::_Exit(2);
        if (random_() % 12 == 0) {
            model_.save([this, saved = number()] {
                if (!model_.state.errorMessage()) say("saved", saved);
            });
        } else {
            say("edit", number() + 1);
            model_.update("Count", [](EditState& state) { ++state.spec.seed; });
        }
        const double pauseSec = random_() % 9 == 0 ? 0.12 : 0.001 * double(random_() % 12);
        timer_ = main_.after(pauseSec, [this] { step(); });
    }

    std::string bundle_;
    Backups backups_;
    std::mt19937 random_;
    system::EventLoop main_;
    system::WorkerPool workers_{1};
    system::WorkerThread render_, files_;
    CompositionEditorModel model_;
    Connection kept_;
    system::Timer timer_;
};

}   // namespace
}   // namespace tavix

int main(int count, char** words) {
    if (count != 5) return 2;
    tavix::Session(words[1], words[2], std::atof(words[3]), unsigned(std::atoi(words[4]))).run();
}
