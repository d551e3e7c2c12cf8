// What the actions of a window do.
#include "TavixEditor/Windows/MainWindow.h"

#include "Editor/EditorDomain/Timeline/TimelineCommands.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Panels/CommandPalette.h"
#include "TavixEditor/Stage/FrameCopy.h"
#include "TavixEditor/Stage/StageView.h"
#include "TavixEditor/Timeline/SelectionClipboard.h"
#include "TavixEditor/Windows/EditorView.h"
#include "TavixEditor/Windows/ExportSheet.h"
#include "TavixEditor/Windows/NewProjectSheet.h"
#include "TavixEditor/Windows/ShortcutSheet.h"
#include "TavixEditor/Windows/WelcomeView.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"

#include <QAction>
#include <QCoreApplication>
#include <QFileDialog>
#include <QMessageBox>

#include <algorithm>

namespace tavix::editor {

void MainWindow::connectFileActions() {
    const auto on = [this](QAction* action, auto job) {
        QObject::connect(action, &QAction::triggered, this, job);
    };
    on(actions_.newProject, [this] {
        auto* sheet = new NewProjectSheet(studio_, this);
        sheet->onMade = [this](const std::filesystem::path& bundle) { openDocument(bundle); };
        sheet->open();
    });
    on(actions_.open, [this] { askForBundle(); });
    on(actions_.save, [this] { studio_.model.save(); });
    on(actions_.revert, [this] { openNow(*studio_.model.state.bundle()); });
    on(actions_.saveAs, [this] { saveAs(); });
    on(actions_.exportFilm, [this] { (new ExportSheet(studio_, this))->open(); });
    on(actions_.close, [this] { studio_.model.state.isLoaded() ? closeDocument() : void(close()); });
    on(actions_.quit, [this] { onQuit ? onQuit() : void(close()); });
    on(actions_.copyFrame, [this] { copyFrame(studio_); });
}

void MainWindow::connectEditActions() {
    CompositionEditorModel& model = studio_.model;
    const auto on = [this](QAction* action, auto job) {
        QObject::connect(action, &QAction::triggered, this, job);
    };
    on(actions_.undo, [&model] { model.undo(); });
    on(actions_.redo, [&model] { model.redo(); });
    on(actions_.deselect, [&model] { model.clearSelection(); });
    on(actions_.cut, [&model] { cutSelection(model); });
    on(actions_.copy, [&model] { copySelection(model); });
    on(actions_.paste, [&model] { pasteAtPlayhead(model); });
    on(actions_.selectAll, [&model] { model.update("", timeline::selectAllLayers); });
    const auto whole = [&model](const char* ofLayers, const char* ofScene) {
        return model.state.edited().selection.layer ? ofLayers : ofScene;
    };
    on(actions_.duplicate, [&model, whole] {
        model.update(
            whole(QT_TRANSLATE_NOOP("Step", "Duplicate layer"), QT_TRANSLATE_NOOP("Step", "Duplicate scene")),
            timeline::duplicateSelection);
    });
    on(actions_.remove, [&model, whole] {
        model.update(
            whole(QT_TRANSLATE_NOOP("Step", "Remove layer"), QT_TRANSLATE_NOOP("Step", "Remove scene")),
            timeline::deleteSelection);
    });
    on(actions_.addScene,
        [&model] { model.update(QT_TRANSLATE_NOOP("Step", "Add scene"), SceneOperations::addScene); });
    const std::pair<QAction*, ContentKind> kinds[] = {{actions_.addText, ContentKind::text},
        {actions_.addDevice, ContentKind::device}, {actions_.addShape, ContentKind::shape},
        {actions_.addFill, ContentKind::fill}};
    for (const auto& [action, kind] : kinds) on(action, [this, kind = kind] { addLayer(kind); });
    const std::pair<QAction*, DropKind> files[] = {{actions_.addImage, DropKind::picture},
        {actions_.addVideo, DropKind::clip}, {actions_.addMusic, DropKind::music}};
    for (const auto& [action, kind] : files) on(action, [this, kind = kind] { addFiles(kind); });
    on(actions_.findBeats, [&model] { model.analyzeMusicGrid(); });
}

// As if they were dropped beside the stage, at the playhead.
void MainWindow::addFiles(DropKind kind) {
    if (studio_.model.state.edited().spec.scenes.empty()) return;
    const QString words = kind == DropKind::picture ? tr("Images")
                          : kind == DropKind::clip  ? tr("Videos")
                                                    : tr("Music");
    auto* dialog = new QFileDialog(
        this, words, {}, words + QStringLiteral(" (%1)").arg(editor::words(patternsOf(kind))));
    dialog->setObjectName(QStringLiteral("filesToAdd"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(kind == DropKind::music ? QFileDialog::ExistingFile : QFileDialog::ExistingFiles);
    QObject::connect(dialog, &QFileDialog::filesSelected, this, [this](const QStringList& names) {
        std::vector<std::filesystem::path> files;
        for (const QString& name : names) files.push_back(pathOf(name));
        drop(studio_, files, {studio_.model.state.currentTime()});
        editor_->stage().setFocus();
    });
    dialog->open();
}

// Into the scene that is looked at, and where it can be seen: a text has come by then.
void MainWindow::addLayer(ContentKind kind) {
    constexpr double arrivalSec = 1;
    CompositionEditorModel& model = studio_.model;
    const EditorState& state = model.state;
    if (state.edited().spec.scenes.empty()) return;
    const auto shown = CompositionTimeline(state.edited().spec).sample(state.currentTime());
    const std::size_t scene = state.edited().selection.scene.value_or(shown ? shown->outgoing.index : 0);
    model.update(QT_TRANSLATE_NOOP("Step", "Add layer"),
        [&](EditState& changed) { LayerOperations::addLayer(changed, scene, kind); });
    const CompositionSpec& spec = state.edited().spec;
    const double startSec = CompositionTimeline(spec).startSec[scene],
                 endSec = startSec + spec.scenes[scene].durationSec;
    const double fromSec =
        kind == ContentKind::text ? startSec + std::min(arrivalSec, (endSec - startSec) / 2) : startSec;
    if (state.currentTime() < fromSec || state.currentTime() >= endSec) model.seek(fromSec);
    editor_->stage().setFocus();
}

void MainWindow::connectPlayActions() {
    CompositionEditorModel& model = studio_.model;
    const auto seekBy = [this, &model](QAction* action, auto stepSec) {
        action->setAutoRepeat(true);
        QObject::connect(action, &QAction::triggered, this,
            [&model, stepSec] { model.seek(model.state.currentTime() + stepSec(model)); });
    };
    const auto frameSec = [](const CompositionEditorModel& of) {
        return 1 / std::max(double(of.state.edited().spec.output.fps), 1.0);
    };
    QObject::connect(actions_.play, &QAction::triggered, this, [&model] { model.togglePlay(); });
    QObject::connect(actions_.toStart, &QAction::triggered, this, [&model] { model.seek(0); });
    QObject::connect(
        actions_.toEnd, &QAction::triggered, this, [&model] { model.seek(model.state.outputDuration()); });
    seekBy(actions_.stepBack, [frameSec](const CompositionEditorModel& of) { return -frameSec(of); });
    seekBy(actions_.stepForward, frameSec);
    seekBy(actions_.secondBack, [](const CompositionEditorModel&) { return -1.0; });
    seekBy(actions_.secondForward, [](const CompositionEditorModel&) { return 1.0; });
}

void MainWindow::connectViewActions() {
    StageView& stage = editor_->stage();
    const auto on = [this](QAction* action, auto job) {
        QObject::connect(action, &QAction::triggered, this, job);
    };
    constexpr double zoomStep = 1.25;
    stage.onRemove = [this] { actions_.remove->trigger(); };
    on(actions_.zoomIn, [&stage] { stage.zoomBy(zoomStep); });
    on(actions_.zoomOut, [&stage] { stage.zoomBy(1 / zoomStep); });
    on(actions_.fit, [&stage] { stage.fit(); });
    on(actions_.actualPixels, [&stage] { stage.zoomToActualPixels(); });
    on(actions_.safeAreas, [this, &stage] { stage.setSafeAreasShown(actions_.safeAreas->isChecked()); });
    on(actions_.fullScreen, [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); });
}

void MainWindow::tell(const char* name, const QString& title, const QString& text) {
    auto* box = new QMessageBox(QMessageBox::NoIcon, title, title, QMessageBox::Ok, this);
    box->setObjectName(QLatin1String(name));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(text);
    box->open();
}

void MainWindow::connectHelpActions() {
    const auto on = [this](QAction* action, auto job) {
        QObject::connect(action, &QAction::triggered, this, job);
    };
    on(actions_.palette, [this] {
        QList<QAction*> commands = actions_.all;
        commands.removeOne(actions_.palette);
        new CommandPalette(commands, this);
    });
    on(actions_.gallery, [this] {
        if (onGallery) onGallery();
    });
    on(actions_.shortcuts, [this] { (new ShortcutSheet(shortcuts_, this))->open(); });
    on(actions_.setUpAgents, [this] { setUpAgents(AgentSheet::Begin::nothing); });
    welcome_->onInstall = [this](AgentSheet::Begin begin) { setUpAgents(begin); };
    on(actions_.checkForUpdates, [this] {
        tell("updates", tr("Tavix %1").arg(QCoreApplication::applicationVersion()),
            tr("Tavix is updated with the other packages of this machine, by its software manager."));
    });
    on(actions_.about, [this] {
        tell("about", tr("Tavix %1").arg(QCoreApplication::applicationVersion()),
            tr("Turns a document into a finished product video."));
    });
}

void MainWindow::setUpAgents(AgentSheet::Begin begin) {
    try {
        const CLIInstaller installer(ToolchainPlaces::ofThisMachine(), studio_.defaults);
        auto* sheet = new AgentSheet(studio_, installer, this, begin);
        QObject::connect(sheet, &QDialog::finished, welcome_, [this] { welcome_->readSetup(); });
        sheet->open();
    } catch (const Failure& failure) {
        studio_.model.state.errorMessage = failure.message();
    }
}

}   // namespace tavix::editor
