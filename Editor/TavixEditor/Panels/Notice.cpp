#include "TavixEditor/Panels/Notice.h"

#include "TavixEditor/App/Words.h"
#include "TavixEditor/Panels/ChangesPanel.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

namespace tavix::editor {

namespace {

QString tr(const char* text, int count = -1) {
    return QCoreApplication::translate("Notice", text, nullptr, count);
}

Notice ofLostWork(CompositionEditorModel& model, const std::function<void(std::size_t)>& recover) {
    const LostWorkOffer& lost = model.state.lostWork().front();
    const QDateTime at = QDateTime::fromSecsSinceEpoch(lost.at.time_since_epoch().count());
    return {Notice::Weight::warning,
        tr("Changes to “%1” were not saved when Tavix ended at %2.")
            .arg(pathWords(lost.assetRoot.stem()), QLocale().toString(at, QLocale::ShortFormat)),
        {{tr("Bring Them Back"), [recover] { recover(0); }},
            {tr("Give Them Up"), [&model] { model.forgetLostWork(0); }}}};
}

Notice ofConflicts(CompositionEditorModel& model) {
    const auto& conflicts = model.state.fileConflicts();
    const auto choose = [&model](MergeSide side) {
        return [&model, side] {
            model.chooseForAllConflicts(side);
            model.takeInFile();
        };
    };
    const QString first = words(conflicts.front().values.message());
    return {Notice::Weight::warning,
        conflicts.size() == 1
            ? tr("Another program changed what you changed too: %1").arg(first)
            : tr("Another program changed %n value(s) that you changed too, the first one: %1",
                  int(conflicts.size()))
                  .arg(first),
        {{tr("Keep Mine"), choose(MergeSide::ours)}, {tr("Take Theirs"), choose(MergeSide::theirs)}}};
}

Notice ofChanges(Changes& changes, const std::function<void()>& show) {
    return {Notice::Weight::news,
        tr("Changed by another program: %1.").arg(ChangesPanel::countWords(*changes.news())),
        {{tr("Show"), show},
            {tr("Undo"), [&changes] { changes.takeBack(0, utf8Of(ChangesPanel::stepName())); }},
            {tr("Dismiss"), [&changes] { changes.forgetNews(); }}}};
}

}   // namespace

std::optional<Notice> noticeOf(CompositionEditorModel& model, Changes& changes, const NoticeRoads& roads) {
    const EditorState& state = model.state;
    if (!state.lostWork().empty()) return ofLostWork(model, roads.recover);
    if (!state.fileConflicts().empty()) return ofConflicts(model);
    if (state.errorMessage())
        return Notice{Notice::Weight::error, words(*state.errorMessage()),
            {{tr("Dismiss"), [&model] { model.state.errorMessage = std::nullopt; }}}};
    if (changes.news()) return ofChanges(changes, roads.showChanges);
    return std::nullopt;
}

}   // namespace tavix::editor
