// The one main window: the welcome screen until a composition is open, then its editor.
#pragma once

#include "TavixEditor/App/Actions.h"
#include "TavixEditor/Windows/UnsavedChanges.h"
#include "TavixLive/Observing/Observable.h"

#include <QCoreApplication>
#include <QWidget>

#include <filesystem>
#include <functional>

class QStackedLayout;

namespace tavix::editor {

class EditorView;
class Studio;
class WelcomeView;

class MainWindow final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
public:
    explicit MainWindow(Studio& studio);
    ~MainWindow() override;

    // Asks about unsaved changes first. What is no composition is told, and changes nothing.
    void openDocument(const std::filesystem::path& path);
    EditorView& editor() { return *editor_; }
    const Actions& actions() const { return actions_; }
    std::function<void()> onClosed;   // it was closed, and not by a document's end

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void connectFileActions();
    void connectEditActions();
    void connectPlayActions();
    void connectViewActions();
    void applyWindowMode();
    void showActions();
    void askForBundle();
    void closeDocument();

    Studio& studio_;
    Actions actions_;
    UnsavedChanges unsaved_;
    QStackedLayout* pages_;
    WelcomeView* welcome_;
    EditorView* editor_;
    bool mayClose_ = false;
    Connections connections_;
};

}   // namespace tavix::editor
