// The sound of a cue: one of the catalog or a file, and a button that lets it be heard.
#include "TavixEditor/Inspector/FileChoice.h"
#include "TavixEditor/Inspector/RowControl.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixCore/Document/SoundCue.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Inspector/InspectorWords.h"
#include "TavixRender/Assets/BundledSounds.h"
#include "TavixRender/Assets/CompositionAssets.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QToolButton>

#include <memory>

namespace tavix::editor {

using namespace design;

namespace {

std::optional<std::filesystem::path> fileOfSound(
    const std::string& sound, const std::optional<std::filesystem::path>& folder) {
    SoundCue cue;
    cue.sound = sound;
    if (const auto known = cue.resolvedSound()) return BundledSounds::url(*known);
    if (sound.empty() || !folder) return std::nullopt;
    return CompositionAssets::resolved(sound, *folder);
}

}   // namespace

RowControl makeSoundControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* box = new QWidget(parent);
    auto* line = new QHBoxLayout(box);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(space::tight);
    auto* list = new QComboBox(box);
    list->setAccessibleName(documentLabel(row.label));
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(5);
    for (const std::string& word : row.words) list->addItem(wordLabel(word), words(word));
    list->insertSeparator(list->count());
    list->addItem(InspectorWords::tr("Choose a file…"));
    auto* play = makeIconButton(Icon::volume, InspectorWords::tr("Play the sound"), box);
    line->addWidget(list, 1);
    line->addWidget(play);
    const auto kept = std::make_shared<InspectorRow>(row);
    const auto show = [=](const InspectorRow& now) {
        *kept = now;
        const QString sound = now.isMixed ? QString() : words(now.value.stringValue().value_or(""));
        // A file has a place of its own in the list, before what is always there.
        const int always = int(now.words.size()) + 2;
        while (list->count() > always) list->removeItem(0);
        if (!sound.isEmpty() && list->findData(sound) < 0) {
            list->insertItem(0, pathWords(pathOf(sound).filename()), sound);
            list->setItemData(0, sound, Qt::ToolTipRole);
        }
        list->setPlaceholderText(now.isMixed ? mixedWords() : QString());
        list->setCurrentIndex(sound.isEmpty() ? -1 : list->findData(sound));
        play->setEnabled(!sound.isEmpty());
    };
    QObject::connect(list, &QComboBox::activated, list, [=, &edits](int index) {
        const QVariant chosen = list->itemData(index);
        const auto sound = chosen.isValid() ? std::optional(utf8Of(chosen.toString()))
                                            : chooseFile(list, Role::soundFile, edits.folder());
        if (sound)
            edits.set(*kept, Json(*sound), false);
        else
            show(InspectorRow(*kept));
    });
    QObject::connect(play, &QToolButton::clicked, play, [=, &edits] {
        if (const auto file = fileOfSound(kept->value.stringValue().value_or(""), edits.folder()))
            edits.play(*file);
    });
    return {box, show};
}

}   // namespace tavix::editor
