// A main window: the welcome screen until a composition is open, then its editor.
#pragma once

#include "TavixEditor/App/Actions.h"
#include "TavixEditor/App/Shortcuts.h"
#include "TavixEditor/Windows/AgentSheet.h"
#include "TavixEditor/Windows/Drops.h"
#include "TavixEditor/Windows/UnsavedChanges.h"
#include "TavixLive/Observing/Observable.h"
#include "TavixLive/Operations/LayerOperations.h"

#include <QCoreApplication>
#include <QWidget>

#include <filesystem>
#include <functional>
#include <optional>

class QStackedLayout;

namespace tavix::editor {

class EditorView;
class Studio;
class ThemeChoice;
class WelcomeView;

class MainWindow final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
public:
    // The themes may be left out, as by tests.
    explicit MainWindow(Studio& studio, ThemeChoice* themes = nullptr);
    ~MainWindow() override;

    // Asks about unsaved changes first. What is no composition is told, and changes nothing.
    void openDocument(const std::filesystem::path& path);
    // What is open here or on its way.
    const std::optional<std::filesystem::path>& document() const;
    void present();   // to the front
    EditorView& editor() { return *editor_; }
    const Actions& actions() const { return actions_; }
    Shortcuts& shortcuts() { return shortcuts_; }
    std::function<void()> onClosed;    // it was closed, and not by a document's end
    std::function<void()> onStayed;    // it was to be closed, and its user thought better of it
    std::function<void()> onQuit;      // all windows are to go; without it, this one goes
    std::function<void()> onGallery;   // all windows have one gallery, which is to come to the front
    std::function<MainWindow*(const std::filesystem::path&)> windowOf;   // null for what is open in none

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void connectFileActions();
    void connectEditActions();
    void addLayer(ContentKind kind);
    void addFiles(DropKind kind);
    void connectPlayActions();
    void connectViewActions();
    void connectThemes();
    void enter(QWidget* page);
    MainWindow* otherWindowOf(const std::filesystem::path& bundle);
    void openNow(const std::filesystem::path& bundle);
    void arrive();
    void applyWindowMode();
    void showNotice();
    void saveAs();
    void connectHelpActions();
    void setUpAgents(AgentSheet::Begin begin);
    void tell(const char* name, const QString& title, const QString& text);
    void showActions();
    void askForBundle();
    void closeDocument();

    Studio& studio_;
    ThemeChoice* themes_;
    Actions actions_;
    Shortcuts shortcuts_;
    UnsavedChanges unsaved_;
    QStackedLayout* pages_;
    WelcomeView* welcome_;
    EditorView* editor_;
    bool mayClose_ = false, hasEntered_ = false;
    bool isOpening_ = false;                         // a document, or lost work
    std::optional<std::filesystem::path> opening_;   // the document
    Connections connections_;
};

}   // namespace tavix::editor
