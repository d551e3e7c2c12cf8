#include "TavixEditor/Panels/Notice.h"

#include "TavixEditor/App/Words.h"
#include "TavixEditor/Panels/ChangesPanel.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

namespace tavix::editor {

namespace {

// The context of the words.
struct NoticeBarWords {
    Q_DECLARE_TR_FUNCTIONS(Notice)
};

Notice ofLostWork(CompositionEditorModel& model, const std::function<void(std::size_t)>& recover) {
    const LostWorkOffer& lost = model.state.lostWork().front();
    const QDateTime at = QDateTime::fromSecsSinceEpoch(lost.at.time_since_epoch().count());
    return {Notice::Weight::warning,
        NoticeBarWords::tr("Changes to “%1” were not saved when Tavix ended at %2.")
            .arg(pathWords(lost.assetRoot.stem()), QLocale().toString(at, QLocale::ShortFormat)),
        {{NoticeBarWords::tr("Bring Them Back"), [recover] { recover(0); }},
            {NoticeBarWords::tr("Give Them Up"), [&model] { model.forgetLostWork(0); }}}};
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
            ? NoticeBarWords::tr("Another program changed what you changed too: %1").arg(first)
            : NoticeBarWords::tr("Another program changed %1 values that you changed too, the first one: %2")
                  .arg(conflicts.size())
                  .arg(first),
        {{NoticeBarWords::tr("Keep Mine"), choose(MergeSide::ours)},
            {NoticeBarWords::tr("Take Theirs"), choose(MergeSide::theirs)}}};
}

Notice ofChanges(Changes& changes, const std::function<void()>& show) {
    return {Notice::Weight::news,
        NoticeBarWords::tr("Changed by another program: %1.").arg(ChangesPanel::countWords(*changes.news())),
        {{NoticeBarWords::tr("Show"), show},
            {NoticeBarWords::tr("Undo"),
                [&changes] { changes.takeBack(0, utf8Of(ChangesPanel::stepName())); }},
            {NoticeBarWords::tr("Dismiss"), [&changes] { changes.forgetNews(); }}}};
}

}   // namespace

std::optional<Notice> noticeOf(CompositionEditorModel& model, Changes& changes, const NoticeRoads& roads) {
    const EditorState& state = model.state;
    if (!state.lostWork().empty()) return ofLostWork(model, roads.recover);
    if (!state.fileConflicts().empty()) return ofConflicts(model);
    if (state.errorMessage())
        return Notice{Notice::Weight::error, words(*state.errorMessage()),
            {{NoticeBarWords::tr("Dismiss"), [&model] { model.state.errorMessage = std::nullopt; }}}};
    if (changes.news()) return ofChanges(changes, roads.showChanges);
    return std::nullopt;
}

}   // namespace tavix::editor
