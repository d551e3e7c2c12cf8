// What stands in the window while nothing is open: ways to begin, and what was open lately.
#pragma once

#include "TavixLive/Observing/Observable.h"

#include <QCoreApplication>
#include <QWidget>

#include <filesystem>
#include <functional>

class QLabel;
class QVBoxLayout;

namespace tavix::editor {

struct Actions;
class Studio;

class WelcomeView final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(WelcomeView)
public:
    WelcomeView(Studio& studio, const Actions& actions, QWidget* parent = nullptr);

    std::function<void(const std::filesystem::path& bundle)> onOpenRecent;
    // Reads anew what was open lately.
    void readRecents();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeBeginnings(const Actions& actions);
    QWidget* makeRecents();
    void showError();

    Studio& studio_;
    QVBoxLayout* recents_ = nullptr;
    QLabel* error_ = nullptr;
    Connections connections_;
};

}   // namespace tavix::editor
