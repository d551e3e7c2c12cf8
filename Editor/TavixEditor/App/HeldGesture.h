// All that a key does while it is held is one step of undo.
#pragma once

#include "TavixLive/Model/CompositionEditorModel.h"

#include <string>

namespace tavix::editor {

class HeldGesture {
public:
    explicit HeldGesture(CompositionEditorModel& model) : model_(model) {}

    // At each press, also of those that a held key repeats.
    void press(const std::string& stepName) {
        if (!isHeld_) model_.beginGesture(stepName);
        isHeld_ = true;
    }
    // The key is let go, or its view has lost the keyboard.
    void letGo() {
        if (isHeld_) model_.endGesture();
        isHeld_ = false;
    }

private:
    CompositionEditorModel& model_;
    bool isHeld_ = false;
};

}   // namespace tavix::editor
