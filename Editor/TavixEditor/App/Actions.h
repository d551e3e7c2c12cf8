// Everything that can be done, once: menus, buttons, shortcuts and the command palette show the same actions.
#pragma once

#include <QList>

class QAction;
class QObject;
class QString;

namespace tavix::editor {

// Owned by the object that they were made for. What they do is connected by the window.
struct Actions {
    QAction *newProject, *open, *save, *saveAs, *revert, *exportFilm, *close, *quit;
    QAction *undo, *redo, *duplicate, *remove, *selectAll, *deselect, *cut, *copy, *paste, *copyFrame;
    QAction *play, *toStart, *toEnd, *stepBack, *stepForward, *secondBack, *secondForward;
    QAction *zoomIn, *zoomOut, *actualPixels, *fit, *safeAreas, *fullScreen;
    QAction *findings, *changes, *json;   // what stands beside the stage
    QAction *themeDesktop, *themeDark, *themeLight;
    QAction *addScene, *addText, *addDevice, *addImage, *addVideo, *addShape, *addFill, *addMusic, *findBeats;
    QAction *palette, *shortcuts, *gallery, *setUpAgents, *checkForUpdates, *about;

    QList<QAction*> all;   // in the order of the menus
};

Actions makeActions(QObject* owner);

// The words of a command without the sign of its key, which some languages write behind them: "Open(&O)".
QString plainWords(const QAction* command);

}   // namespace tavix::editor
