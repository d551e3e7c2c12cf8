#include "TavixCore/Paths/JsonText.h"

#include "TavixCore/Paths/Difference.h"
#include "TavixCore/Paths/JsonTextTree.h"
#include "TavixCore/Support/JsonParser.h"

namespace tavix {
Json parseJson(std::string_view text, JsonDialect dialect) {
    return dialect == JsonDialect::strict ? parseJson(text)
                                          : parseJson(withoutLastCommas(withoutComments(text)));
}

std::string patchedText(std::string_view text, const JsonPatch& patch, JsonDialect dialect) {
    applyPatch(patch, parseJson(text, dialect));   // throws where it cannot be done
    JsonTextTree tree(text, dialect);
    for (const PatchOperation& operation : patch) {
        using Kind = PatchOperation::Kind;
        const JsonPointer& path = operation.path;
        switch (operation.kind) {
        case Kind::add: tree.add(path, operation.value); break;
        case Kind::replace: tree.replace(path, operation.value); break;
        case Kind::move: tree.move(operation.from, path); break;
        case Kind::copy: tree.copy(operation.from, path); break;
        case Kind::test: break;
        case Kind::remove: path.isRoot() ? tree.replace(path, Json()) : tree.remove(path); break;
        }
    }
    return tree.text();
}

std::string textSaying(std::string_view text, const Json& wanted, JsonDialect dialect) {
    return patchedText(text, diff(parseJson(text, dialect), wanted), dialect);
}

}   // namespace tavix
