#include "TavixEditor/Panels/Changes.h"

#include "TavixAgent/Edit/DocumentDiff.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixLive/Saving/DocumentMerge.h"

#include <exception>
#include <utility>

namespace tavix::editor {

namespace {

constexpr std::size_t mostSteps = 20;

ChangeRow rowOf(const DocumentChange& change, const TakenIn& taken) {
    using Kind = ChangeRow::Kind;
    ChangeRow row;
    row.kind = change.what == "added"     ? Kind::added
               : change.what == "removed" ? Kind::removed
               : change.what == "moved"   ? Kind::moved
                                          : Kind::changed;
    const JsonPointer at = JsonPointer::parse(change.path);
    // What is gone had its place in the document before.
    const bool isGone = row.kind == Kind::removed;
    row.where = wordsOf(placeOf(at, (isGone ? taken.before : taken.after)->spec),
        (isGone ? taken.before : taken.after)->spec);
    row.place = placeOf(at, taken.after->spec);
    row.words = change.words;
    return row;
}

std::vector<ChangeRow> rowsOf(const TakenIn& taken) {
    std::vector<ChangeRow> rows;
    for (const DocumentChange& change : changesBetween({parseJson(taken.before->text), taken.before->spec},
             {parseJson(taken.after->text), taken.after->spec}))
        rows.push_back(rowOf(change, taken));
    return rows;
}

}   // namespace

Changes::Changes(CompositionEditorModel& model, system::Executor& main, system::Executor& workers)
    : model_(model), main_(main), workers_(workers) {
    connections_.push_back(watch([this] { note(); }, model.state.takenIn));
}

void Changes::note() {
    const std::optional<TakenIn>& taken = model_.state.takenIn();
    if (!taken) {
        lifeline_.cut();
        const Batch together;
        steps = std::vector<Step>();
        news = std::nullopt;
        return;
    }
    system::runThere(
        workers_, main_, [taken = *taken] { return rowsOf(taken); },
        lifeline_.guard([this, taken = *taken](system::Outcome<std::vector<ChangeRow>>& outcome) {
            const Batch together;
            std::vector<Step> all = steps();
            all.insert(all.begin(),
                {taken, QDateTime::currentDateTime(),
                    outcome.hasFailed() ? std::vector<ChangeRow>() : std::move(outcome.value())});
            if (all.size() > mostSteps) all.resize(mostSteps);
            news = news().value_or(0) + all.front().rows.size();
            steps = std::move(all);
        }));
}

void Changes::goTo(std::size_t step, std::size_t row) const {
    if (step < steps().size() && row < steps()[step].rows.size())
        editor::goTo(model_, steps()[step].rows[row].place);
}

void Changes::takeBack(std::size_t step, const std::string& stepName) {
    if (step >= steps().size()) return;
    const TakenIn& taken = steps()[step].from;
    const std::string* last = model_.history().undoName();
    if (step == 0 && last && *last == CompositionEditorModel::takeInName) {
        model_.undo();
    } else {
        try {
            const CompositionSpec& now = model_.state.edited().spec;
            const CompositionSpec back =
                MergeOf<CompositionSpec>(taken.after->spec, now, taken.before->spec).document();
            model_.update(stepName, [&](EditState& state) {
                state.spec = back;
                clampSelection(state);
            });
        } catch (const std::exception& error) {
            model_.state.errorMessage = error.what();
            return;
        }
    }
    const Batch together;
    std::vector<Step> rest = steps();
    rest.erase(rest.begin() + std::ptrdiff_t(step));
    steps = std::move(rest);
    news = std::nullopt;
}

}   // namespace tavix::editor
