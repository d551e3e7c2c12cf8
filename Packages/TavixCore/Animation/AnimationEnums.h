// The words that every animation shares.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

enum class AnimationScope { block, line, word, character };                // what moves as one piece
enum class StaggerOrder { normal, reverse, centerOut, edgesIn, random };   // who starts first
enum class ClipMask { none, line, word, element };

const Names<AnimationScope>& namesOf(std::type_identity<AnimationScope>);
const Names<StaggerOrder>& namesOf(std::type_identity<StaggerOrder>);
const Names<ClipMask>& namesOf(std::type_identity<ClipMask>);

}   // namespace tavix
