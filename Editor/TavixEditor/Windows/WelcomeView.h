// What stands in the window while nothing is open: ways to begin, and what was open lately.
#pragma once

#include "TavixEditor/Windows/AgentSheet.h"
#include "TavixLive/Observing/Observable.h"
#include "TavixPlatform/System/Continuation.h"

#include <QCoreApplication>
#include <QWidget>

#include <filesystem>
#include <functional>

class QAction;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tavix::editor {

struct Actions;
class NoticeBar;
class RecentCard;
class Studio;

class WelcomeView final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(WelcomeView)
public:
    WelcomeView(Studio& studio, const Actions& actions, QWidget* parent = nullptr);

    std::function<void(const std::filesystem::path& bundle)> onOpenRecent;
    std::function<void(AgentSheet::Begin begin)> onInstall;
    // How the command is installed on this machine.
    struct Setup {
        bool isInstalled = true, hasUpdate = false;
    };
    void readSetup();
    void showSetup(const Setup& setup);
    NoticeBar& notices() { return *notices_; }
    // Reads anew what was open lately.
    void readRecents();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeBeginnings(const Actions& actions);
    QWidget* makeRecents(const Actions& actions);
    QWidget* makeGalleryCard(QAction* action);
    void showError();
    void drawThumbnail(const std::filesystem::path& bundle, RecentCard* card);

    Studio& studio_;
    NoticeBar* notices_ = nullptr;
    QVBoxLayout* recents_ = nullptr;
    QLabel* error_ = nullptr;
    Connections connections_;
    QPushButton *update_ = nullptr, *global_ = nullptr, *project_ = nullptr;
    system::Lifeline lifeline_;   // of the cards that stand
    system::Lifeline setup_;
};

}   // namespace tavix::editor
