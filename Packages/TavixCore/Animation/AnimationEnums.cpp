#include "TavixCore/Animation/AnimationEnums.h"

#include "TavixCore/Support/Names.h"

namespace tavix {

const Names<AnimationScope>& namesOf(std::type_identity<AnimationScope>) {
    using enum AnimationScope;
    static const Names<AnimationScope> table{"animation scope",
        {{block, "block"}, {line, "line"}, {word, "word"}, {character, "character"}}, block};
    return table;
}

const Names<StaggerOrder>& namesOf(std::type_identity<StaggerOrder>) {
    using enum StaggerOrder;
    static const Names<StaggerOrder> table{"stagger order",
        {{normal, "normal"}, {reverse, "reverse"}, {centerOut, "centerOut"}, {edgesIn, "edgesIn"},
            {random, "random"}},
        normal};
    return table;
}

const Names<ClipMask>& namesOf(std::type_identity<ClipMask>) {
    using enum ClipMask;
    static const Names<ClipMask> table{
        "clip mask", {{none, "none"}, {line, "line"}, {word, "word"}, {element, "element"}}, none};
    return table;
}

}   // namespace tavix
