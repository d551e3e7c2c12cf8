#include "Editor/EditorDomain/Inspector/DocumentWords.h"

#include "Editor/EditorDomain/Inspector/ContentSizes.h"
#include "Editor/EditorDomain/Inspector/InspectorRows.h"
#include "Editor/EditorDomain/Timeline/TimelineScene.h"
#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Field.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Typography/KineticVocabulary.h"
#include "TavixLive/Gallery/PresetGallery.h"

#include <algorithm>
#include <cctype>

namespace tavix {

namespace {

constexpr int deepest = 12;   // of a document in itself
// As many as there are ways through unions in unions: each is taken in some document.
constexpr std::size_t documents = 256;

// Lets everything be there once. The number says which alternatives: its remainder that of a union, the rest
// those of unions in it.
void fill(const Type& type, void* value, std::size_t alternative, int depth = 0) {
    if (depth > deepest) return;
    switch (type.kind) {
    case Type::Kind::optional: {
        const auto& optional = static_cast<const OptionalType&>(type);
        void* held = optional.held(value);
        if (!held) held = optional.emplace(value);
        return fill(optional.value(), held, alternative, depth + 1);
    }
    case Type::Kind::list: {
        const auto& list = static_cast<const ListType&>(type);
        list.renew(value, 1);
        return fill(list.element(), list.at(value, 0), alternative, depth + 1);
    }
    case Type::Kind::record:
        for (const Field& field : static_cast<const RecordType&>(type).rows)
            if (field.reach) fill(field.type(), field.reach(value), alternative, depth + 1);
        return;
    case Type::Kind::choice: {
        const auto& choice = static_cast<const ChoiceType&>(type);
        const Alternative& taken = choice.rows[alternative % choice.rows.size()];
        taken.emplace(value);
        return fill(taken.type(), taken.held(value), alternative / choice.rows.size(), depth + 1);
    }
    default: return;
    }
}

void read(const InspectorRow& row, DocumentWords& words) {
    words.labels.insert(numbered(row.label).label);
    words.helps.insert(row.help);
    const bool isChoice =
        row.control == InspectorRow::Control::word || row.control == InspectorRow::Control::alternative;
    if (!isChoice || !row.wordNames.empty()) return;   // names of products are the same everywhere
    for (const std::string& word : row.words) words.labels.insert(labelOfWord(word));
}

}   // namespace

DocumentWords documentWords() {
    DocumentWords words;
    ContentSizes sizes;
    for (std::size_t i = 0; i < documents; ++i) {
        EditState state;
        fill(typeOf<CompositionSpec>(), &state.spec, i);
        for (const int depth : {0, 1, 2}) {
            if (depth > 0) state.selection.scene = 0;
            if (depth > 1) state.selection.layer = 0;
            const CompositionLayer& layer = state.spec.scenes[0].layers[0];
            if (timeline::isLabelledByKind(layer)) words.labels.insert(timeline::barLabel(layer));
            for (const InspectorSection& section : inspection(state, {0, std::nullopt, &sizes}).sections) {
                words.labels.insert(section.title);
                for (const InspectorRow& row : section.rows) read(row, words);
            }
        }
    }
    const auto add = [&](const auto& ids) {
        for (const std::string_view id : ids) words.labels.insert(labelOfWord(std::string(id)));
    };
    add(KineticVocabulary::presetIDs);
    add(KineticVocabulary::speeds());
    add(KineticVocabulary::weights());
    add(KineticVocabulary::intensities());
    for (const PresetGalleryItem& item : PresetGalleryCatalog::all()) {
        words.labels.insert(numbered(item.title).label);
        words.labels.emplace(displayName(item.collection));
        words.labels.emplace(displayName(item.family));
    }
    words.labels.erase("");
    words.helps.erase("");
    return words;
}

NumberedLabel numbered(const std::string& label) {
    const std::size_t at = label.find_last_not_of("0123456789");
    const bool hasNumber = at != std::string::npos && at + 1 < label.size() && label[at] == ' ';
    if (!hasNumber) return {label, {}};
    return {label.substr(0, at), label.substr(at + 1)};
}

std::string labelOfWord(const std::string& word) {
    std::string spaced = word;
    std::ranges::replace_if(
        spaced, [](char c) { return c == '-' || c == '_'; }, ' ');
    return labelOfKey(spaced);
}

}   // namespace tavix
