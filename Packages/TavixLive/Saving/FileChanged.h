// Two programs on one file: saving over what the other one wrote.
#pragma once

#include "TavixBase/Failure.h"

namespace tavix {

// Saving was refused: another program has written the file, or taken it away.
class FileChanged : public Failure {
public:
    using Failure::Failure;
};

enum class IfChanged { refuse, overwrite };   // where another program has written the file since

}   // namespace tavix
