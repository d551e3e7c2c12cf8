// All that a source with field tables needs.
#pragma once

#include "TavixCore/Support/Alternatives.h"
#include "TavixCore/Support/Fields.h"
#include "TavixCore/Support/Names.h"
