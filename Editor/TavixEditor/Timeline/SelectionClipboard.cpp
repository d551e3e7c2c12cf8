#include "TavixEditor/Timeline/SelectionClipboard.h"

#include "Editor/EditorDomain/Timeline/TimelineCommands.h"
#include "TavixEditor/App/Words.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMimeData>

namespace tavix::editor {

namespace {

struct ClipboardWords {
    Q_DECLARE_TR_FUNCTIONS(TimelineCanvas)
};

QString mimeType() { return QStringLiteral("application/x-tavix-layers+json"); }

}   // namespace

void copySelection(const CompositionEditorModel& model) {
    const std::string text = timeline::copied(model.state.edited(), model.state.bundle());
    if (text.empty()) return;
    auto* mime = new QMimeData;
    mime->setData(mimeType(), QByteArray::fromStdString(text));
    mime->setText(words(text));
    QGuiApplication::clipboard()->setMimeData(mime);
}

void cutSelection(CompositionEditorModel& model) {
    if (!model.state.edited().selection.scene) return;
    copySelection(model);
    model.update(utf8Of(ClipboardWords::tr("Cut")), timeline::deleteSelection);
}

void pasteAtPlayhead(CompositionEditorModel& model) {
    const QMimeData* const mime = QGuiApplication::clipboard()->mimeData();
    const QByteArray bytes = mime->hasFormat(mimeType()) ? mime->data(mimeType()) : mime->text().toUtf8();
    bool isPasted = false;
    model.update(utf8Of(ClipboardWords::tr("Paste")), [&](EditState& state) {
        isPasted =
            timeline::paste(state, bytes.toStdString(), model.state.currentTime(), model.state.bundle());
    });
    if (!isPasted)
        model.state.statusMessage = utf8Of(ClipboardWords::tr("There are no layers on the clipboard."));
}

}   // namespace tavix::editor
