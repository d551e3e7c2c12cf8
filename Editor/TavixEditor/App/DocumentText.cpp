#include "TavixEditor/App/DocumentText.h"

#include "Editor/EditorDomain/Inspector/DocumentWords.h"
#include "TavixCore/Document/LayerContent.h"
#include "TavixEditor/App/Words.h"
#include "TavixLive/Operations/EditState.h"

#include <QCoreApplication>

namespace tavix::editor {

namespace {

struct SelectionWords {
    Q_DECLARE_TR_FUNCTIONS(Selection)
};

// Of the models, which name some steps themselves.
[[maybe_unused]] const char* const modelSteps[] = {QT_TRANSLATE_NOOP("Step", "Find the beat"),
    QT_TRANSLATE_NOOP("Step", "Add keyframe"), QT_TRANSLATE_NOOP("Step", "Move device"),
    QT_TRANSLATE_NOOP("Step", "Nudge device"), QT_TRANSLATE_NOOP("Step", "Move layer"),
    QT_TRANSLATE_NOOP("Step", "Nudge layer"), QT_TRANSLATE_NOOP("Step", "Edit text")};

}   // namespace

QString documentLabel(const std::string& label) {
    const auto [name, number] = numbered(label);
    const QString said = QCoreApplication::translate("Document", name.c_str());
    return number.empty() ? said : said + QLatin1Char(' ') + words(number);
}

QString barWords(const std::string& label, bool isLabelledByKind) {
    return isLabelledByKind ? documentLabel(label) : words(label);
}

QString documentHelp(const std::string& help) {
    return help.empty() ? QString() : QCoreApplication::translate("DocumentHelp", help.c_str());
}

QString stepWords(const std::string& step) { return QCoreApplication::translate("Step", step.c_str()); }

QString selectionWords(const EditState& state) {
    const Selection& selected = state.selection;
    if (!selected.scene || *selected.scene >= state.spec.scenes.size()) return {};
    const CompositionScene& scene = state.spec.scenes[*selected.scene];
    const QString name = words(scene.displayName(*selected.scene));
    if (!selected.layer || *selected.layer >= scene.layers.size()) return name;
    const std::string kind(kindName(scene.layers[*selected.layer].content));
    const QString layer =
        SelectionWords::tr("%1 layer %2", "a kind, as text or device, and the number of the layer")
            .arg(documentLabel(labelOfWord(kind)).toLower())
            .arg(*selected.layer);
    const QString one = name + QStringLiteral(" · ") + layer;
    return selected.others.empty()
               ? one
               : SelectionWords::tr("%1 and %2 more").arg(one).arg(selected.others.size());
}

}   // namespace tavix::editor
