// Whatever can be used has a name that a screen reader says.
#include "EditorWindow.h"

#include "TavixEditor/Windows/GalleryWindow.h"
#include "TavixLive/Operations/AudioOperations.h"
#include "TavixLive/Operations/LayerOperations.h"

#include <QAccessible>
#include <QAction>
#include <QDialog>

#include <set>

namespace tavix::editor {
namespace {

bool isControl(QAccessible::Role role) {
    switch (role) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::List:
    case QAccessible::Tree:
    case QAccessible::MenuItem:
    case QAccessible::ListItem: return true;
    default: return false;
    }
}

struct Tree {
    std::set<std::string> nameless;
    std::size_t controls = 0;

    void read(QAccessibleInterface* node, const std::string& within) {
        if (!node || !node->isValid() || node->state().invisible) return;
        const QObject* const object = node->object();
        const std::string kind = object ? object->metaObject()->className() : "part";
        if (isControl(node->role())) {
            ++controls;
            if (node->text(QAccessible::Name).trimmed().isEmpty())
                nameless.insert(
                    within + " / " + kind + " " + (object ? object->objectName().toStdString() : ""));
        }
        // Inside of these are parts of theirs, which are named with them.
        if (node->role() == QAccessible::ComboBox || node->role() == QAccessible::SpinBox) return;
        const QString name = node->text(QAccessible::Name);
        for (int i = 0; i < node->childCount(); ++i)
            read(node->child(i), name.isEmpty() ? within : name.toStdString());
    }
};

class Accessibility : public EditorWindow {
protected:
    void expectNames(QWidget* top, std::size_t atLeast) {
        QTest::qWait(20);
        Tree tree;
        tree.read(QAccessible::queryAccessibleInterface(top), top->objectName().toStdString());
        EXPECT_GE(tree.controls, atLeast);
        for (const std::string& each : tree.nameless) ADD_FAILURE() << each << " has no name.";
    }
};

TEST_F(Accessibility, OfTheWelcomeScreen) { expectNames(window.get(), 4); }

TEST_F(Accessibility, OfTheEditorWithEveryKindOfLayer) {
    open(makeBundle("square"));
    expectNames(window.get(), 30);
    for (const ContentKindRow& kind : contentKinds) {
        SCOPED_TRACE(kind.label);
        studio->model.update("Add", [&](EditState& changed) {
            LayerOperations::addLayer(changed, 0, kind.kind);
            for (const std::string_view effect : effectKinds())
                LayerOperations::addEffect(changed, 0, changed.spec.scenes[0].layers.size() - 1, effect);
            LayerOperations::setEnterPhase(
                changed, 0, changed.spec.scenes[0].layers.size() - 1, KineticPhase::identity);
        });
        studio->model.selectLayer(0, state().edited().spec.scenes[0].layers.size() - 1);
        expectNames(window.get(), 40);
    }
}

TEST_F(Accessibility, OfTheDocumentsSoundsAndThePanels) {
    open(makeBundle("square"));
    studio->model.update("Sound", [](EditState& changed) {
        changed.selection = {};
        AudioOperations::setMusicEnabled(changed, true);
        AudioOperations::addSoundCue(changed, 0.5);
    });
    for (QAction* panel : {window->actions().findings, window->actions().changes, window->actions().json}) {
        SCOPED_TRACE(panel->objectName().toStdString());
        panel->trigger();
        expectNames(window.get(), 30);
    }
}

TEST_F(Accessibility, OfTheSheetsAndTheGallery) {
    open(makeBundle("square"));
    const std::pair<QAction*, const char*> sheets[] = {{window->actions().exportFilm, "exportSheet"},
        {window->actions().shortcuts, "shortcutSheet"}, {window->actions().palette, "commandPalette"},
        {window->actions().setUpAgents, "agentSheet"}};
    for (const auto& [action, name] : sheets) {
        SCOPED_TRACE(name);
        action->trigger();
        QWidget* const sheet = dialog(name);
        ASSERT_TRUE(sheet);
        expectNames(sheet, 3);
        sheet->close();
        QTest::qWait(20);
    }
    GalleryWindow gallery;
    gallery.present(studio->model);
    expectNames(&gallery, 20);
}

}   // namespace
}   // namespace tavix::editor
