#include "TavixLive/Model/ExportQueue.h"

#include "TavixRender/Encoding/RenderStopped.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/FinishedFilm.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace tavix {

using Stand = ExportJob::Stand;

bool ExportQueue::isBusy() const { return !std::ranges::all_of(jobs(), &ExportJob::isOver); }

template <class Change> void ExportQueue::change(int id, Change change) {
    std::vector<ExportJob> all = jobs();
    const auto job = std::ranges::find(all, id, &ExportJob::id);
    if (job == all.end()) return;
    change(*job);
    jobs = std::move(all);
}

int ExportQueue::add(CompositionRenderer::Config config, Ended ended) {
    const int id = ++last_;
    ended_.push_back({id, std::move(ended)});
    std::vector<ExportJob> all = jobs();
    all.push_back({id, std::make_shared<const CompositionRenderer::Config>(std::move(config))});
    jobs = std::move(all);
    begin();
    return id;
}

void ExportQueue::begin() {
    if (std::ranges::any_of(jobs(), [](const ExportJob& job) { return job.stand == Stand::running; })) return;
    const auto next = std::ranges::find(jobs(), Stand::waiting, &ExportJob::stand);
    if (next == jobs().end()) return;
    const int id = next->id;
    const auto config = next->config;
    change(id, [](ExportJob& job) { job.stand = Stand::running; });
    stop_ = {};
    const std::function<void(double)> progress = lifeline_.guard(
        [this, id](double fraction) { change(id, [=](ExportJob& job) { job.fraction = fraction; }); });
    system::runThere(
        workers_, main_,
        [config, stop = stop_.get_token(), log = log_, progress, &main = main_] {
            FinishedFilm::write(
                CompositionExport::filmOf(*config), config->output, log,
                [&](double fraction) { main.post([progress, fraction] { progress(fraction); }); }, stop);
            return true;
        },
        lifeline_.guard([this, id](system::Outcome<bool>& outcome) { end(id, outcome); }));
}

void ExportQueue::end(int id, system::Outcome<bool>& outcome) {
    ExportJob ended;
    change(id, [&](ExportJob& job) {
        try {
            outcome.value();
            job.stand = Stand::done;
            job.fraction = 1;
        } catch (const RenderStopped&) {
            job.stand = Stand::stopped;
        } catch (const std::exception& error) {
            job.stand = Stand::failed;
            job.fault = error.what();
        }
        ended = job;
    });
    const auto told = std::ranges::find(ended_, id, &std::pair<int, Ended>::first);
    const Ended tell = told == ended_.end() ? Ended() : std::move(told->second);
    if (told != ended_.end()) ended_.erase(told);
    begin();
    if (tell) tell(ended);
}

void ExportQueue::stop(int id) {
    const auto found = std::ranges::find(jobs(), id, &ExportJob::id);
    if (found == jobs().end() || found->isOver()) return;
    if (found->stand == Stand::running) {
        stop_.request_stop();
        return;
    }
    change(id, [](ExportJob& job) { job.stand = Stand::stopped; });
    const auto told = std::ranges::find(ended_, id, &std::pair<int, Ended>::first);
    if (told == ended_.end()) return;
    const Ended tell = std::move(told->second);
    ended_.erase(told);
    if (tell) tell(*std::ranges::find(jobs(), id, &ExportJob::id));
}

void ExportQueue::stopAll() {
    const std::vector<ExportJob> all = jobs();
    for (auto job = all.rbegin(); job != all.rend(); ++job) stop(job->id);   // none begins meanwhile
}

void ExportQueue::dismiss(int id) {
    std::vector<ExportJob> rest = jobs();
    std::erase_if(rest, [id](const ExportJob& job) { return job.id == id && job.isOver(); });
    jobs = std::move(rest);
}

}   // namespace tavix
