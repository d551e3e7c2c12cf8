// What an inspector shows of the selection, as plain data read from the tables of the document: nothing here
// knows a layer's kind. Several layers at once give the rows that they have in common.
#pragma once

#include "Editor/EditorDomain/Inspector/ScrubMath.h"
#include "TavixCore/Paths/JsonPointer.h"
#include "TavixCore/Support/Role.h"
#include "TavixCore/Support/Unit.h"
#include "TavixLive/Operations/EditState.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

class ContentSizes;

struct InspectorRow {
    enum class Control {
        number,
        numbers,   // a few that belong together, as x and y; `parts` names them
        toggle,
        word,   // one of `words`
        text,
        paragraph,
        file,
        sound,   // one of `words`, or a file
        font,
        color,
        fill,   // a colour, a gradient or a picture
        curve,
        kinetic,       // the animation of a text
        alternative,   // which of `words` the value is; what it then holds follows as rows of its own
        presence,      // whether the value is there; likewise
        element,       // of a list: its name, with a way to take it out
        adder,         // one more for a list
        picks,         // some of `words`, by their indices
        note           // told, not edited here
    };

    // Where among keyframes the playhead stands. Times are of the film.
    struct Keyed {
        std::optional<AnimProperty> property;   // absent: of the device as a whole
        bool isAnimated = false, isHere = false;
        std::optional<double> beforeSec, nextSec;
        bool operator==(const Keyed&) const = default;
    };

    JsonPointer path;   // in the document, the scene or the layer; of keyframes and the corner a name alone
    Control control = Control::note;
    std::string label, help;
    int depth = 0;
    Json value;             // null: it is absent
    bool isMixed = false;   // the selected ones differ; the value is that of the first
    bool isOptional = false;
    bool isSetByPreset = false;
    Json rest;   // the default; null where it is to be absent
    bool isAtRest = true;
    Unit unit = Unit::none;
    ScrubRange range;        // of numbers
    double step = 0.1;       // of a press of an arrow key
    double shownTimes = 1;   // what is shown is the value times this
    Role role = Role::none;
    std::vector<std::string> words, parts;
    std::vector<std::string> wordNames;   // what is shown for the words, where they do not say it well
    std::optional<Keyed> keyed;

    bool operator==(const InspectorRow&) const = default;
    // Whether a control made for the other one serves this one, too.
    bool isLike(const InspectorRow& other) const;
};

struct InspectorSection {
    std::string title;
    std::vector<InspectorRow> rows;
    bool operator==(const InspectorSection&) const = default;
};

struct Inspection {
    std::string title, subtitle;
    std::vector<InspectorSection> sections;
    bool operator==(const Inspection&) const = default;
};

struct InspectionContext {
    double atSec = 0;   // the playhead
    std::optional<std::filesystem::path> assetRoot = {};
    ContentSizes* sizes = nullptr;   // absent: rows that need a layer's size are left out
};
// Of the selected layers, of the selected scene, or of the document.
Inspection inspection(const EditState& state, const InspectionContext& context = {});

// Where a layer's left upper corner stands, from which its position follows.
inline constexpr std::string_view cornerKey = "corner";

// "maxWidthFraction" is "Max width".
std::string labelOfKey(std::string_view key);
// As it stands behind a number: "px", "°"; empty where it would say nothing.
std::string_view shortSymbol(Unit unit);

}   // namespace tavix
