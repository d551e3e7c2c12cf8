// The control of one row of the inspector: a widget, and how it is told of a new value.
#pragma once

#include "Editor/EditorDomain/Inspector/InspectorRows.h"
#include "TavixCore/Values/RGBAColor.h"

#include <QString>

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <vector>

class QWidget;

namespace tavix::editor {

// What controls do to the selection. While `isEditing` is true more is to come, and all of it is one step.
class RowEdits {
public:
    virtual ~RowEdits() = default;
    virtual void set(const InspectorRow& row, const Json& value, bool isEditing) = 0;
    virtual void setPart(const InspectorRow& row, const std::string& part, double value, bool isEditing) = 0;
    virtual void giveUp() = 0;   // what was told so, and not ended
    virtual void setPresent(const InspectorRow& row, bool isThere) = 0;
    virtual void setAlternative(const InspectorRow& row, const std::string& tag) = 0;
    virtual void remove(const InspectorRow& row) = 0;
    virtual void append(const InspectorRow& row) = 0;
    virtual void toggleKeyframe(const InspectorRow& row) = 0;
    virtual void seek(double toSec) = 0;
    virtual void play(const std::filesystem::path& sound) = 0;
    virtual std::optional<std::filesystem::path> folder() const = 0;   // that relative paths hang from
    virtual std::set<std::string>& foldedSections() = 0;               // by their titles
    virtual std::vector<RGBAColor> colorsInUse() const = 0;            // of the document, the frequent first
};

struct RowControl {
    QWidget* widget = nullptr;                           // null: the row is its label alone
    std::function<void(const InspectorRow& row)> show;   // a row like the one that it was made for
    bool isWide = false;                                 // stands below its label, over the whole width
};

RowControl makeRowControl(const InspectorRow& row, RowEdits& edits, QWidget* parent);

// Those with more to them than a field.
RowControl makeColorControl(const InspectorRow& row, RowEdits& edits, QWidget* parent);
RowControl makeFillControl(const InspectorRow& row, RowEdits& edits, QWidget* parent);
RowControl makeKineticControl(const InspectorRow& row, RowEdits& edits, QWidget* parent);
RowControl makeParagraphControl(const InspectorRow& row, RowEdits& edits, QWidget* parent);
RowControl makeFileControl(const InspectorRow& row, RowEdits& edits, QWidget* parent);
RowControl makeSoundControl(const InspectorRow& row, RowEdits& edits, QWidget* parent);
RowControl makeFontControl(const InspectorRow& row, RowEdits& edits, QWidget* parent);

QString mixedWords();   // in place of a value that differs
// "lineRise" and "line-rise" are "Line rise", in the language of the interface.
QString wordLabel(const std::string& word);

}   // namespace tavix::editor
