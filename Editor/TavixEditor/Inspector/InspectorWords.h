// The inspector's words in the language of the interface: InspectorWords::tr("Color").
#pragma once

#include <QCoreApplication>

namespace tavix::editor {

struct InspectorWords {
    Q_DECLARE_TR_FUNCTIONS(Inspector)
};

}   // namespace tavix::editor
