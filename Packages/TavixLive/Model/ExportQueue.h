// The exports of a window, one after another while editing goes on.
#pragma once

#include "TavixLive/Observing/Observable.h"
#include "TavixPlatform/System/Continuation.h"
#include "TavixRender/Export/CompositionRenderer.h"

#include <filesystem>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

namespace tavix {

struct ExportJob {
    enum class Stand { waiting, running, done, failed, stopped };

    int id = 0;
    std::shared_ptr<const CompositionRenderer::Config> config;   // a copy of everything as it was
    Stand stand = Stand::waiting;
    double fraction = 0;      // 0 to 1
    std::string fault = {};   // of a failed one

    // What a person finds afterwards: the film, or the folder of its pictures.
    std::filesystem::path place() const {
        return config->fileFormat == ExportFormat::png ? config->output.parent_path() : config->output;
    }
    bool isOver() const { return stand != Stand::waiting && stand != Stand::running; }
    bool operator==(const ExportJob&) const = default;
};

// Lives on the main executor, which outlives the workers.
class ExportQueue {
public:
    using Ended = std::function<void(const ExportJob&)>;

    ExportQueue(system::Executor& main, system::Executor& workers, RenderLog log)
        : main_(main), workers_(workers), log_(std::move(log)) {}
    ~ExportQueue() { stop_.request_stop(); }

    Observable<std::vector<ExportJob>> jobs;   // in the order in which they were asked for

    bool isBusy() const;   // one runs or waits
    // Begins at once when nothing else runs. `ended` is told of a stopped one, too.
    int add(CompositionRenderer::Config config, Ended ended = {});
    // The one that runs ends soon, one that waits at once; others are left alone.
    void stop(int id);
    void stopAll();
    // Takes one that is over off the list.
    void dismiss(int id);

private:
    template <class Change> void change(int id, Change change);
    void begin();
    void end(int id, system::Outcome<bool>& outcome);

    system::Executor &main_, &workers_;
    RenderLog log_;
    std::vector<std::pair<int, Ended>> ended_;
    int last_ = 0;
    std::stop_source stop_;   // of the one that runs
    system::Lifeline lifeline_;
};

}   // namespace tavix
