#include "TavixEditor/Panels/Findings.h"

#include "TavixAgent/Check/FindingReport.h"
#include "TavixCore/Findings/AuthoredPath.h"
#include "TavixCore/Judge/Repair.h"
#include "TavixCore/Paths/JsonText.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixRender/Encoding/RenderStopped.h"
#include "TavixRender/Judge/DocumentJudge.h"
#include "TavixRender/Judge/FrameJudge.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace tavix::editor {

namespace {

FindingRow rowOf(Finding finding, const Json& written, const CompositionSpec& spec) {
    const bool hasRepair = !CompositionLint::repairOf(finding, written).empty();
    const WrittenPlace place = placeOf(CompositionLint::pointerOf(finding.path, written), spec);
    return {std::move(finding), place, wordsOf(place, spec), hasRepair};
}

Findings::Told judged(const std::string& text, const CompositionRoad::AssetRoot& assetRoot) {
    const Json written = parseJson(text);
    auto read = decodeValue<CompositionSpec>(written);
    const auto muted = DocumentJudge::mutedBy(read);
    DocumentJudge::Judged judged =
        DocumentJudge::judge(std::move(read), written, assetRoot, {.rules = true, .footage = true});
    CompositionLint::Told told = CompositionLint::told(std::move(judged.findings), muted);
    orderByImportance(told.findings);
    Findings::Told all;
    all.mutedCount = told.muted.size();
    for (Finding& finding : told.findings)
        all.rows.push_back(rowOf(std::move(finding), written, judged.spec));
    return all;
}

}   // namespace

std::size_t Findings::Told::count(Finding::Level level) const {
    return std::size_t(
        std::ranges::count_if(rows, [level](const FindingRow& row) { return row.finding.level == level; }));
}

Findings::Findings(CompositionEditorModel& model, system::SerialExecutor& main, system::Executor& workers)
    : model_(model), main_(main), workers_(workers) {
    EditorState& state = model.state;
    connections_.push_back(tavix::show([this] { noteEdit(); }, state.edited, state.isLoaded));
}

void Findings::noteEdit() {
    const CompositionSpec& spec = model_.state.edited().spec;
    if (model_.state.isLoaded() && judged_ == spec) return;   // only the selection is another one
    judged_ = model_.state.isLoaded() ? std::optional(spec) : std::nullopt;
    lookSoon();
}

void Findings::lookSoon() {
    frames_.clear();
    stopFrames();
    document_.cut();
    if (!judged_) {
        timer_.cancel();
        told = Told();
        isLooking = false;
        framesFraction = std::nullopt;
        return;
    }
    isLooking = true;
    timer_ = main_.after(pauseSec, [this] { look(); });
}

void Findings::look() {
    system::runThere(
        workers_, main_,
        [text = model_.savedText(), root = CompositionRoad::AssetRoot(model_.state.bundle())] {
            return judged(text(), root);
        },
        document_.guard([this](system::Outcome<Told>& outcome) {
            const Batch together;
            isLooking = false;
            try {
                told = std::move(outcome.value());
            } catch (const std::exception& error) {
                Finding fault;
                fault.message = error.what();
                told = Told{{{fault, {}, {}, false}}, 0};
            }
        }));
}

void Findings::goTo(std::size_t row) const {
    if (row < told().rows.size()) editor::goTo(model_, told().rows[row].place);
}

void Findings::repair(std::size_t row, const std::string& stepName) {
    if (row < told().rows.size()) mend(stepName, {told().rows[row].finding}, false);
}

bool Findings::mayRepairAll() const {
    return std::ranges::any_of(told().rows, [](const FindingRow& row) {
        const auto rule = CompositionLint::ruleOf(row.finding.code);
        return row.hasRepair && rule && CompositionLint::keepsIntent(*rule);
    });
}

void Findings::repairAll(const std::string& stepName) {
    std::vector<Finding> all;
    for (const FindingRow& row : told().rows) all.push_back(row.finding);
    mend(stepName, std::move(all), true);
}

// On the text as it would be saved, so that what is misspelt goes from there, too.
void Findings::mend(const std::string& stepName, std::vector<Finding> findings, bool isAll) {
    system::runThere(
        workers_, main_,
        [saved = model_.savedText(), findings = std::move(findings), isAll] {
            const std::string text = saved();
            const Json written = parseJson(text);
            const JsonPatch patch =
                isAll ? repairsOf(findings, written) : CompositionLint::repairOf(findings.front(), written);
            return patchedText(text, patch);
        },
        document_.guard([this, stepName](system::Outcome<std::string>& outcome) {
            try {
                const auto fault = model_.applySavedText(std::move(outcome.value()), stepName);
                if (fault) model_.state.errorMessage = *fault;
                lookSoon();   // also where the film is the same
            } catch (const std::exception& error) {
                model_.state.errorMessage = error.what();
            }
        }));
}

void Findings::lookAtFrames() {
    if (framesFraction() || !model_.state.isLoaded()) return;
    framesFraction = 0.0;
    stop_ = {};
    const std::function<void(double)> progress =
        document_.guard([this](double fraction) { framesFraction = fraction; });
    system::runThere(
        workers_, main_,
        [text = model_.savedText(), spec = model_.state.edited().spec,
            root = CompositionRoad::AssetRoot(model_.state.bundle()), progress, &main = main_,
            stop = stop_.get_token()] {
            const Json written = parseJson(text());
            std::vector<FindingRow> rows;
            auto found = FrameJudge::findings({.spec = spec,
                .assetRoot = root,
                .onProgress = [&](double fraction) { main.post([=] { progress(fraction); }); },
                .stop = stop});
            for (Finding& finding : CompositionLint::atAuthoredPaths(std::move(found), spec))
                rows.push_back(rowOf(std::move(finding), written, spec));
            return rows;
        },
        lifeline_.guard([this, of = document_.thread()](system::Outcome<std::vector<FindingRow>>& outcome) {
            const Batch together;
            framesFraction = std::nullopt;
            if (of.expired()) return;   // it was edited meanwhile
            try {
                Told all = told();
                std::erase_if(all.rows, [this](const FindingRow& row) {
                    return std::ranges::find(frames_, row) != frames_.end();
                });
                frames_ = std::move(outcome.value());
                all.rows.insert(all.rows.end(), frames_.begin(), frames_.end());
                told = std::move(all);
            } catch (const RenderStopped&) {
            } catch (const std::exception& error) {
                model_.state.errorMessage = error.what();
            }
        }));
}

}   // namespace tavix::editor
