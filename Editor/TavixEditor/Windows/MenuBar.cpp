#include "TavixEditor/Windows/MenuBar.h"

#include "TavixEditor/App/Actions.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>

namespace tavix::editor {

namespace {

// The context of the words.
struct MenuWords {
    Q_DECLARE_TR_FUNCTIONS(MenuBar)
};

// Null stands for a line between groups.
void fill(QMenu* menu, std::initializer_list<QAction*> actions) {
    for (QAction* action : actions) {
        if (action)
            menu->addAction(action);
        else
            menu->addSeparator();
    }
}

}   // namespace

QMenuBar* makeMenuBar(const Actions& a) {
    auto* bar = new QMenuBar;
    bar->setNativeMenuBar(false);
    bar->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    fill(bar->addMenu(MenuWords::tr("&File")),
        {a.newProject, a.open, nullptr, a.save, a.saveAs, a.revert, nullptr, a.exportFilm, a.copyFrame,
            nullptr, a.close, a.quit});
    fill(bar->addMenu(MenuWords::tr("&Edit")),
        {a.undo, a.redo, nullptr, a.cut, a.copy, a.paste, a.duplicate, a.remove, nullptr, a.selectAll,
            a.deselect, nullptr, a.palette, a.shortcuts});
    fill(bar->addMenu(MenuWords::tr("&Insert")),
        {a.addScene, nullptr, a.addText, a.addDevice, a.addImage, a.addVideo, a.addShape, a.addFill, nullptr,
            a.addMusic, a.findBeats});
    fill(bar->addMenu(MenuWords::tr("&Play")), {a.play, nullptr, a.stepBack, a.stepForward, a.secondBack,
                                                   a.secondForward, nullptr, a.toStart, a.toEnd});
    QMenu* view = bar->addMenu(MenuWords::tr("&View"));
    fill(view, {a.zoomIn, a.zoomOut, a.fit, a.actualPixels, nullptr, a.safeAreas, a.fullScreen, nullptr,
                   a.findings, a.changes, a.json, nullptr});
    fill(view->addMenu(MenuWords::tr("&Theme")), {a.themeDesktop, a.themeDark, a.themeLight});
    fill(bar->addMenu(MenuWords::tr("&Help")),
        {a.gallery, a.setUpAgents, nullptr, a.checkForUpdates, a.about});
    return bar;
}

}   // namespace tavix::editor
