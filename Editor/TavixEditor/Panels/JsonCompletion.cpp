#include "TavixEditor/Panels/JsonCompletion.h"

#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixCore/Document/LayerEffect.h"
#include "TavixCore/Document/SFXCatalog.h"
#include "TavixCore/Paths/JsonTextStyle.h"
#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Field.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Theme/BackgroundCatalog.h"
#include "TavixCore/Typography/KineticVocabulary.h"

#include <algorithm>
#include <set>
#include <utility>

namespace tavix::editor {

namespace {

// A key of an object, or the place of a list's element.
struct Slot {
    std::string_view key, meaning;
    const Type* type = nullptr;   // null: one of the words
    Role role = Role::none;
    std::vector<std::string_view> words = {};
};

const Type& bare(const Type& type) {
    return type.kind == Type::Kind::optional ? bare(static_cast<const OptionalType&>(type).value()) : type;
}

class Tables {
public:
    Tables(const JsonScan& scan, JsonPointer base) : scan_(scan), base_(std::move(base)) {}

    // The slots of the object of that type at a place of the document.
    std::vector<Slot> slotsOf(const Type& type, const JsonPointer& at) const {
        std::vector<Slot> slots;
        collect(type, at, slots);
        return slots;
    }

    // What stands at the place; a slot without type and words where the tables say nothing of it.
    Slot slotAt(const Type& root, const JsonPointer& at) const {
        Slot slot{{}, {}, &root};
        JsonPointer here;
        for (const std::string& token : at.tokens()) {
            slot = slot.type ? inside(bare(*slot.type), here, token) : Slot();
            here = here / std::string_view(token);
        }
        return slot;
    }

private:
    // The alternative that the text says, or the one that is read where it says none.
    const Alternative* chosen(const ChoiceType& choice, const JsonPointer& at) const {
        if (choice.tag == ChoiceType::Tag::none) return nullptr;
        const auto tag = textAt(at / choice.tagKey);
        const Alternative* known = tag ? choice.find(*tag) : nullptr;
        return known || !choice.fallbackTag ? known : choice.find(*choice.fallbackTag);
    }

    std::optional<std::string> textAt(const JsonPointer& inDocument) const {
        const auto &all = inDocument.tokens(), &before = base_.tokens();
        if (all.size() < before.size() || !std::equal(before.begin(), before.end(), all.begin()))
            return std::nullopt;
        JsonPointer inText;
        for (std::size_t i = before.size(); i < all.size(); ++i) inText = inText / std::string_view(all[i]);
        return scan_.textAt(inText);
    }

    void collect(const Type& given, const JsonPointer& at, std::vector<Slot>& slots) const {
        const Type& type = bare(given);
        if (type.kind == Type::Kind::record) {
            for (const Field& row : static_cast<const RecordType&>(type).rows)
                if (row.key.empty())
                    collect(row.type(), at, slots);
                else if (row.written != Field::Written::never)
                    slots.push_back({row.key, row.meaning, &row.type(), row.role});
        } else if (type.kind == Type::Kind::choice) {
            const auto& choice = static_cast<const ChoiceType&>(type);
            if (choice.tag != ChoiceType::Tag::none)
                slots.push_back({choice.tagKey, {}, nullptr, Role::none, choice.tags()});
            const Alternative* only = chosen(choice, at);
            for (const Alternative& row : choice.rows) {
                if (only ? &row != only : choice.tag != ChoiceType::Tag::none) continue;
                if (row.payloadKey.empty())
                    collect(row.type(), at, slots);
                else
                    slots.push_back({row.payloadKey, {}, &row.type()});
            }
        }
    }

    Slot inside(const Type& type, const JsonPointer& at, const std::string& token) const {
        if (type.kind == Type::Kind::list) return {{}, {}, &static_cast<const ListType&>(type).element()};
        if (type.kind == Type::Kind::map) return {{}, {}, &static_cast<const MapType&>(type).value()};
        if (type.kind == Type::Kind::record) {
            const auto& record = static_cast<const RecordType&>(type);
            const auto index = indexIn(token);
            if (record.form == RecordType::Form::list && index && *index < record.rows.size())
                return {
                    {}, record.rows[*index].meaning, &record.rows[*index].type(), record.rows[*index].role};
        }
        for (const Slot& slot : slotsOf(type, at))
            if (slot.key == token) return slot;
        return {};
    }

    const JsonScan& scan_;
    JsonPointer base_;
};

std::vector<std::string_view> catalogOf(Role role) {
    std::vector<std::string_view> words;
    switch (role) {
    case Role::textAnimation:
        words.assign(KineticVocabulary::presetIDs.begin(), KineticVocabulary::presetIDs.end());
        break;
    case Role::background:
        for (const auto& entry : BackgroundCatalog::all) words.push_back(entry.id);
        break;
    case Role::device:
        for (const BundledDevice& entry : DeviceCatalog::all()) words.push_back(entry.id);
        break;
    case Role::sound: words = allNames<SFXCatalog::Sound>(); break;
    default: break;
    }
    return words;
}

std::vector<JsonCandidate> valuesOf(const Slot& slot) {
    std::vector<std::string_view> words = slot.words;
    if (slot.type) {
        const Type& type = bare(*slot.type);
        if (type.kind == Type::Kind::boolean) return {{"true", {}}, {"false", {}}};
        if (type.kind == Type::Kind::word)
            words = static_cast<const WordType&>(type).names();
        else
            words = catalogOf(slot.role);
    }
    std::vector<JsonCandidate> all;
    for (const std::string_view word : words)
        if (!word.empty()) all.push_back({quotedJson(word), {}});
    return all;
}

JsonPointer joined(JsonPointer base, const JsonPointer& rest) {
    for (const std::string& token : rest.tokens()) base = base / std::string_view(token);
    return base;
}

}   // namespace

std::vector<JsonCandidate> candidatesAt(const JsonScan& scan, const Type& root, const JsonPointer& base) {
    const JsonCursor& cursor = scan.cursor();
    const Tables tables(scan, base);
    if (!cursor.isInside) return {};
    if (!cursor.isKey) return valuesOf(tables.slotAt(root, joined(base, cursor.value)));
    const JsonPointer holder = joined(base, cursor.holder);
    const Slot of = tables.slotAt(root, holder);
    if (!of.type) return {};
    const std::vector<std::string> there = scan.keysOf(cursor.holder);
    std::set<std::string_view> told(there.begin(), there.end());
    std::vector<JsonCandidate> all;
    for (const Slot& slot : tables.slotsOf(*of.type, holder))
        if (told.insert(slot.key).second) all.push_back({quotedJson(slot.key), std::string(slot.meaning)});
    return all;
}

}   // namespace tavix::editor
