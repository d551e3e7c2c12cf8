#include "TavixEditor/Windows/MainWindow.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/ThemeChoice.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Panels/NoticeBar.h"
#include "TavixEditor/Stage/QtPoints.h"
#include "TavixEditor/Stage/StageView.h"
#include "TavixEditor/Windows/BundleCopy.h"
#include "TavixEditor/Windows/Drops.h"
#include "TavixEditor/Windows/EditorView.h"
#include "TavixEditor/Windows/WelcomeView.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QScreen>
#include <QStackedLayout>

#include <algorithm>

namespace tavix::editor {

namespace {

constexpr QSize welcomeSize(780, 500), leastEditorSize(1000, 680);

}   // namespace

MainWindow::MainWindow(Studio& studio, ThemeChoice* themes)
    : studio_(studio), themes_(themes), actions_(makeActions(this)),
      shortcuts_(studio.defaults, actions_.all), unsaved_(studio.model, this),
      pages_(new QStackedLayout(this)), welcome_(new WelcomeView(studio, actions_)),
      editor_(new EditorView(studio, actions_)) {
    setObjectName(QStringLiteral("editor"));
    setAcceptDrops(true);
    QCoreApplication::instance()->installEventFilter(this);
    pages_->addWidget(welcome_);
    pages_->addWidget(editor_);
    welcome_->onOpenRecent = [this](const std::filesystem::path& bundle) { openDocument(bundle); };
    addActions(actions_.all);
    connectFileActions();
    connectEditActions();
    connectPlayActions();
    connectViewActions();
    connectThemes();
    connectHelpActions();
    EditorState& state = studio_.model.state;
    connections_.push_back(tavix::show([this] { applyWindowMode(); }, state.isLoaded));
    connections_.push_back(tavix::show([this] { showActions(); }, state.isLoaded, state.bundle, state.edited,
        state.undoName, state.redoName, state.isPlaying, state.hasUnsavedChanges));
    connections_.push_back(tavix::show([this] { showNotice(); }, state.isLoaded, state.lostWork,
        state.fileConflicts, state.errorMessage, editor_->changes().news));
}

MainWindow::~MainWindow() = default;

void MainWindow::showNotice() {
    const auto recover = [this](std::size_t index) {
        unsaved_.resolve([this, index] {
            isOpening_ = true;
            enter(editor_);
            studio_.model.recoverLostWork(index, [this] { arrive(); });
        });
    };
    const bool isLoaded = studio_.model.state.isLoaded();
    std::optional<Notice> notice = noticeOf(
        studio_.model, editor_->changes(), {recover, [this] { actions_.changes->setChecked(true); }});
    editor_->notices().setNotice(isLoaded ? notice : std::nullopt);
    // The welcome screen tells errors in a place of its own.
    if (isLoaded || (notice && notice->weight == Notice::Weight::error)) notice.reset();
    welcome_->notices().setNotice(notice);
}

void MainWindow::connectThemes() {
    QAction* const chosen[] = {actions_.themeDesktop, actions_.themeDark, actions_.themeLight};
    chosen[themes_ ? int(themes_->wish()) : 0]->setChecked(true);
    for (int i = 0; i < 3; ++i)
        QObject::connect(chosen[i], &QAction::triggered, this, [this, i] {
            if (themes_) themes_->setWish(ThemeWish(i));
        });
}

void MainWindow::openDocument(const std::filesystem::path& path) {
    if (!CompositionProjectBundle::isBundle(path)) {
        studio_.model.state.errorMessage = utf8Of(tr("Not a Tavix composition — open a .tavixcomp bundle."));
        return;
    }
    if (MainWindow* const other = otherWindowOf(path)) return other->present();
    unsaved_.resolve([this, path] { openNow(std::filesystem::absolute(path)); });
}

// Two windows would save over each other.
MainWindow* MainWindow::otherWindowOf(const std::filesystem::path& bundle) {
    MainWindow* const found = windowOf ? windowOf(bundle) : nullptr;
    return found != this ? found : nullptr;
}

const std::optional<std::filesystem::path>& MainWindow::document() const {
    return opening_ ? opening_ : studio_.model.state.bundle();
}

void MainWindow::present() {
    show();
    raise();
    activateWindow();
}

void MainWindow::askForBundle() {
    auto* dialog = new QFileDialog(this, tr("Open Project"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);   // a bundle is a folder
    QObject::connect(dialog, &QFileDialog::fileSelected, this,
        [this](const QString& file) { openDocument(pathOf(file)); });
    dialog->open();
}

void MainWindow::closeDocument() {
    unsaved_.resolve([this] {
        isOpening_ = false;
        opening_.reset();
        studio_.model.close();
        applyWindowMode();
    });
}

// The editor stands before the document arrives: the stage has its size before its first picture is drawn,
// and between two documents the window stays as it is.
void MainWindow::openNow(const std::filesystem::path& bundle) {
    // Another one may have opened it while a question stood here.
    if (MainWindow* const other = otherWindowOf(bundle)) return other->present();
    isOpening_ = true;
    opening_ = bundle;
    enter(editor_);
    // A copy: the path may be that of the document which goes now.
    studio_.model.open(std::filesystem::path(bundle), [this] { arrive(); });
}

void MainWindow::arrive() {
    isOpening_ = false;
    opening_.reset();
    applyWindowMode();
}

// The bundle is copied whole as it lies on disk, with what is not saved written into the copy, which is open
// from then on.
void MainWindow::saveAs() {
    auto* dialog = new QFileDialog(this, tr("Save As"));
    dialog->setObjectName(QStringLiteral("saveAsTarget"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("tavixcomp"));
    dialog->selectFile(pathWords(studio_.model.state.bundle()->filename()));
    QObject::connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& file) {
        if (otherWindowOf(pathOf(file))) {
            studio_.model.state.errorMessage =
                utf8Of(tr("%1 is open in another window. Close it there, or choose another name.")
                           .arg(QFileInfo(file).fileName()));
            return;
        }
        copyBundle(studio_, pathOf(file), [this, target = pathOf(file)] { openNow(target); });
    });
    dialog->open();
}

void MainWindow::showActions() {
    const EditorState& state = studio_.model.state;
    const bool isLoaded = state.isLoaded();
    for (QAction* action : actions_.all) action->setEnabled(isLoaded);
    for (QAction* action :
        {actions_.newProject, actions_.open, actions_.quit, actions_.close, actions_.themeDesktop,
            actions_.themeDark, actions_.themeLight, actions_.palette, actions_.shortcuts, actions_.gallery,
            actions_.setUpAgents, actions_.checkForUpdates, actions_.about})
        action->setEnabled(true);
    const auto named = [](QAction* action, const std::string* step, const QString& plain,
                           const QString& with) {
        action->setEnabled(step != nullptr);
        action->setText(step ? with.arg(stepWords(*step)) : plain);
    };
    const History& history = studio_.model.history();
    named(actions_.undo, history.undoName(), tr("&Undo"), tr("&Undo %1"));
    named(actions_.redo, history.redoName(), tr("&Redo"), tr("&Redo %1"));
    const Selection& selection = state.edited().selection;
    for (QAction* action : {actions_.cut, actions_.copy, actions_.duplicate, actions_.remove,
             actions_.deselect, actions_.selectAll})
        action->setEnabled(isLoaded && selection.scene);
    const auto& audio = state.edited().spec.audio;
    actions_.findBeats->setEnabled(isLoaded && audio && audio->music);
    actions_.save->setEnabled(isLoaded && state.hasUnsavedChanges());
    actions_.revert->setEnabled(isLoaded && state.hasUnsavedChanges());
    actions_.play->setText(state.isPlaying() ? tr("&Pause") : tr("&Play"));
    actions_.play->setIcon(design::iconOf(state.isPlaying() ? design::Icon::pause : design::Icon::play));
    actions_.safeAreas->setChecked(editor_->stage().areSafeAreasShown());
    const auto& bundle = state.bundle();
    setWindowTitle(
        bundle ? pathWords(bundle->stem()) + QStringLiteral("[*] — Tavix") : QStringLiteral("Tavix"));
    setWindowModified(state.hasUnsavedChanges());
}

void MainWindow::applyWindowMode() {
    if (isOpening_ && !studio_.model.state.isLoaded()) return;
    enter(studio_.model.state.isLoaded() ? static_cast<QWidget*>(editor_) : welcome_);
}

// The welcome screen has one size and stands in the middle; an editor takes the room that there is.
void MainWindow::enter(QWidget* page) {
    if (hasEntered_ && pages_->currentWidget() == page) return;
    hasEntered_ = true;
    pages_->setCurrentWidget(page);
    const QScreen* on = screen();
    const QRect room = on ? on->availableGeometry() : QRect();
    if (page == editor_) {
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        setMinimumSize(room.isValid() ? leastEditorSize.boundedTo(room.size()) : leastEditorSize);
        if (room.isValid()) setGeometry(room);
        if (isVisible()) showMaximized();
        editor_->stage().setFocus();
    } else {
        if (isMaximized() || isFullScreen()) showNormal();
        setFixedSize(welcomeSize);
        if (room.isValid()) move(room.center() - QPoint(welcomeSize.width() / 2, welcomeSize.height() / 2));
    }
}

// File systems of other machines tell of no changes, so it is looked when the window comes to the front.
void MainWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && studio_.model.state.isLoaded())
        studio_.model.lookAtFile();
    if (event->type() == QEvent::WindowStateChange) editor_->setStageAlone(isFullScreen());
    QWidget::changeEvent(event);
}

// Escape that nothing else takes.
void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && isFullScreen()) return actions_.fullScreen->trigger();
    QWidget::keyPressEvent(event);
}

// A gesture becomes a step when its button or its key is let go, which changes nothing that is watched.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::KeyRelease)
        QMetaObject::invokeMethod(
            this, [this] { showActions(); }, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!mayClose_) {
        event->ignore();
        const auto goOn = [this] {
            mayClose_ = true;
            close();
        };
        unsaved_.resolve(goOn, [this] {
            present();
            if (onStayed) onStayed();
        });
        return;
    }
    mayClose_ = false;
    event->accept();
    studio_.model.close();
    if (onClosed) onClosed();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

namespace {

std::vector<std::filesystem::path> filesOf(const QDropEvent& event) {
    std::vector<std::filesystem::path> files;
    for (const QUrl& url : event.mimeData()->urls())
        if (url.isLocalFile()) files.push_back(pathOf(url.toLocalFile()));
    return files;
}

}   // namespace

// A picture or a clip over a phone is about to become its screen.
void MainWindow::dragMoveEvent(QDragMoveEvent* event) {
    const auto files = filesOf(*event);
    const bool isShown = files.size() == 1 && fitsAScreen(kindOfDrop(files.front()));
    StageView& stage = editor_->stage();
    stage.showDropAt(isShown ? std::optional(stage.mapFrom(this, event->position())) : std::nullopt);
    event->acceptProposedAction();
}

void MainWindow::dragLeaveEvent(QDragLeaveEvent*) { editor_->stage().showDropAt(std::nullopt); }

void MainWindow::dropEvent(QDropEvent* event) {
    StageView& stage = editor_->stage();
    stage.showDropAt(std::nullopt);
    const auto files = filesOf(*event);
    if (files.empty()) return;
    event->acceptProposedAction();
    const auto bundle = std::ranges::find(files, DropKind::bundle, kindOfDrop);
    if (bundle != files.end() || !studio_.model.state.isLoaded())
        return openDocument(bundle != files.end() ? *bundle : files.front());
    DropPlace place{studio_.model.state.currentTime()};
    const QPointF onStage = stage.mapFrom(this, event->position());
    if (QRectF(stage.rect()).contains(onStage)) {
        const PixelPoint point = stage.viewport().toCanvas(pointOf(onStage));
        place.point = {point.x, point.y};
        if (files.size() == 1 && fitsAScreen(kindOfDrop(files.front()))) {
            place.phone = stage.showDropAt(onStage);
            stage.showDropAt(std::nullopt);
        }
    }
    drop(studio_, files, place);
}

}   // namespace tavix::editor
