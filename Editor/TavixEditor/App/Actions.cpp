#include "TavixEditor/App/Actions.h"

#include "Editor/EditorDesignSystem/Icons/Icons.h"

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QKeySequence>
#include <QRegularExpression>

#include <optional>

namespace tavix::editor {

namespace {

using design::Icon;

struct Row {
    QAction* Actions::*action;
    const char* name;   // settings and tests know it by this
    const char* words;
    QList<QKeySequence> keys = {};
    std::optional<Icon> icon = {};
    bool isChoice = false;
};

// The words are found by the translator through this list.
QList<Row> rows() {
    using A = Actions;
    return {
        {&A::newProject, "new", QT_TRANSLATE_NOOP("Actions", "&New from Template…"), {QKeySequence::New},
            Icon::add},
        {&A::open, "open", QT_TRANSLATE_NOOP("Actions", "&Open…"), {QKeySequence::Open}, Icon::open},
        {&A::save, "save", QT_TRANSLATE_NOOP("Actions", "&Save"), {QKeySequence::Save}, Icon::save},
        {&A::saveAs, "saveAs", QT_TRANSLATE_NOOP("Actions", "Save &As…"),
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)}},
        {&A::revert, "revert", QT_TRANSLATE_NOOP("Actions", "&Revert to Saved")},
        {&A::exportFilm, "export", QT_TRANSLATE_NOOP("Actions", "&Export…"),
            {QKeySequence(Qt::CTRL | Qt::Key_E)}, Icon::exportFilm},
        {&A::close, "close", QT_TRANSLATE_NOOP("Actions", "&Close"), {QKeySequence(Qt::CTRL | Qt::Key_W)}},
        {&A::quit, "quit", QT_TRANSLATE_NOOP("Actions", "&Quit"), {QKeySequence(Qt::CTRL | Qt::Key_Q)}},
        {&A::undo, "undo", QT_TRANSLATE_NOOP("Actions", "&Undo"), {QKeySequence(Qt::CTRL | Qt::Key_Z)},
            Icon::undo},
        {&A::redo, "redo", QT_TRANSLATE_NOOP("Actions", "&Redo"),
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)}, Icon::redo},
        // Fields of text have these keys for themselves while they are used.
        {&A::cut, "cut", QT_TRANSLATE_NOOP("Actions", "Cu&t"), {QKeySequence(Qt::CTRL | Qt::Key_X)}},
        {&A::copy, "copy", QT_TRANSLATE_NOOP("Actions", "&Copy"), {QKeySequence(Qt::CTRL | Qt::Key_C)}},
        {&A::paste, "paste", QT_TRANSLATE_NOOP("Actions", "&Paste"), {QKeySequence(Qt::CTRL | Qt::Key_V)}},
        {&A::selectAll, "selectAll", QT_TRANSLATE_NOOP("Actions", "Select &All Layers"),
            {QKeySequence(Qt::CTRL | Qt::Key_A)}},
        {&A::duplicate, "duplicate", QT_TRANSLATE_NOOP("Actions", "&Duplicate"),
            {QKeySequence(Qt::CTRL | Qt::Key_D)}},
        // Delete belongs to the stage and the timeline, which take the key themselves.
        {&A::remove, "remove", QT_TRANSLATE_NOOP("Actions", "&Remove"), {}, Icon::trash},
        {&A::deselect, "deselect", QT_TRANSLATE_NOOP("Actions", "Select &Nothing"),
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A)}},
        {&A::copyFrame, "copyFrame", QT_TRANSLATE_NOOP("Actions", "Copy &Frame"),
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C)}},
        {&A::play, "play", QT_TRANSLATE_NOOP("Actions", "&Play"), {QKeySequence(Qt::Key_Space)}, Icon::play},
        {&A::toStart, "toStart", QT_TRANSLATE_NOOP("Actions", "To the &Start"), {QKeySequence(Qt::Key_Home)},
            Icon::toStart},
        {&A::toEnd, "toEnd", QT_TRANSLATE_NOOP("Actions", "To the &End"), {QKeySequence(Qt::Key_End)},
            Icon::toEnd},
        {&A::stepBack, "stepBack", QT_TRANSLATE_NOOP("Actions", "One Frame &Back"),
            {QKeySequence(Qt::Key_Comma)}, Icon::stepBack},
        {&A::stepForward, "stepForward", QT_TRANSLATE_NOOP("Actions", "One Frame &Forward"),
            {QKeySequence(Qt::Key_Period)}, Icon::stepForward},
        {&A::secondBack, "secondBack", QT_TRANSLATE_NOOP("Actions", "One Second Back"),
            {QKeySequence(Qt::SHIFT | Qt::Key_Comma), QKeySequence(Qt::Key_J)}},
        {&A::secondForward, "secondForward", QT_TRANSLATE_NOOP("Actions", "One Second Forward"),
            {QKeySequence(Qt::SHIFT | Qt::Key_Period), QKeySequence(Qt::Key_L)}},
        {&A::zoomIn, "zoomIn", QT_TRANSLATE_NOOP("Actions", "Zoom &In"),
            {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)}, Icon::zoomIn},
        {&A::zoomOut, "zoomOut", QT_TRANSLATE_NOOP("Actions", "Zoom &Out"),
            {QKeySequence(Qt::CTRL | Qt::Key_Minus)}, Icon::zoomOut},
        {&A::actualPixels, "actualPixels", QT_TRANSLATE_NOOP("Actions", "&Actual Pixels"),
            {QKeySequence(Qt::CTRL | Qt::Key_1)}},
        {&A::fit, "fit", QT_TRANSLATE_NOOP("Actions", "&Fit"), {QKeySequence(Qt::CTRL | Qt::Key_0)},
            Icon::fit},
        {&A::safeAreas, "safeAreas", QT_TRANSLATE_NOOP("Actions", "&Safe Areas"),
            {QKeySequence(Qt::CTRL | Qt::Key_Semicolon)}, Icon::guides, true},
        {&A::fullScreen, "fullScreen", QT_TRANSLATE_NOOP("Actions", "F&ull Screen"),
            {QKeySequence(Qt::Key_F11)}, {}, true},
        {&A::findings, "findings", QT_TRANSLATE_NOOP("Actions", "Fin&dings"),
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)}, Icon::warning, true},
        {&A::changes, "changes", QT_TRANSLATE_NOOP("Actions", "&Changes by Others"),
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_H)}, Icon::history, true},
        {&A::json, "json", QT_TRANSLATE_NOOP("Actions", "&JSON"),
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_J)}, Icon::braces, true},
        {&A::themeDesktop, "themeDesktop", QT_TRANSLATE_NOOP("Actions", "As the &Desktop"), {}, {}, true},
        {&A::themeDark, "themeDark", QT_TRANSLATE_NOOP("Actions", "&Dark"), {}, {}, true},
        {&A::themeLight, "themeLight", QT_TRANSLATE_NOOP("Actions", "&Light"), {}, {}, true},
        {&A::addScene, "addScene", QT_TRANSLATE_NOOP("Actions", "Add &Scene"), {}, Icon::add},
        {&A::addText, "addText", QT_TRANSLATE_NOOP("Actions", "Add &Text"), {QKeySequence(Qt::Key_T)},
            Icon::text},
        {&A::addDevice, "addDevice", QT_TRANSLATE_NOOP("Actions", "Add &Device"), {}, Icon::device},
        {&A::addImage, "addImage", QT_TRANSLATE_NOOP("Actions", "Add &Image…"), {}, Icon::image},
        {&A::addVideo, "addVideo", QT_TRANSLATE_NOOP("Actions", "Add &Video…"), {}, Icon::clip},
        {&A::addShape, "addShape", QT_TRANSLATE_NOOP("Actions", "Add S&hape"), {}, Icon::shape},
        {&A::addFill, "addFill", QT_TRANSLATE_NOOP("Actions", "Add &Fill"), {}, Icon::fill},
        {&A::addMusic, "addMusic", QT_TRANSLATE_NOOP("Actions", "Add &Music…"), {}, Icon::music},
        {&A::findBeats, "findBeats", QT_TRANSLATE_NOOP("Actions", "Find &Beats")},
        {&A::palette, "palette", QT_TRANSLATE_NOOP("Actions", "&Commands…"),
            {QKeySequence(Qt::CTRL | Qt::Key_K)}, Icon::palette},
        {&A::shortcuts, "shortcuts", QT_TRANSLATE_NOOP("Actions", "&Keyboard Shortcuts…"),
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_K)}},
        {&A::gallery, "gallery", QT_TRANSLATE_NOOP("Actions", "Motion &Presets"), {}, Icon::gallery},
        {&A::setUpAgents, "setUpAgents", QT_TRANSLATE_NOOP("Actions", "Set up &Agents…"), {}, Icon::sparkle},
        {&A::checkForUpdates, "checkForUpdates", QT_TRANSLATE_NOOP("Actions", "Check for &Updates…")},
        {&A::about, "about", QT_TRANSLATE_NOOP("Actions", "&About Tavix")},
    };
}

}   // namespace

Actions makeActions(QObject* owner) {
    Actions actions{};
    for (const Row& row : rows()) {
        auto* action = new QAction(QCoreApplication::translate("Actions", row.words), owner);
        action->setObjectName(QLatin1String(row.name));
        action->setShortcuts(row.keys);
        action->setShortcutContext(Qt::WindowShortcut);
        if (row.icon) action->setIcon(design::iconOf(*row.icon));
        action->setCheckable(row.isChoice);
        actions.*row.action = action;
        actions.all.push_back(action);
    }
    auto* themes = new QActionGroup(owner);
    for (QAction* theme : {actions.themeDesktop, actions.themeDark, actions.themeLight})
        themes->addAction(theme);
    return actions;
}

QString plainWords(const QAction* command) {
    static const QRegularExpression behind(QStringLiteral(R"(\(&.\))"));
    return command->text().remove(behind).remove(QLatin1Char('&'));
}

}   // namespace tavix::editor
