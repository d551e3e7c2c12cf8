#include "TavixAgent/Document/ReadingFaults.h"

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Findings/LintRule.h"
#include "TavixCore/Judge/Repair.h"
#include "TavixCore/Paths/JsonPatch.h"
#include "TavixCore/Support/Document.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace tavix {
namespace {

constexpr std::size_t mostFaults = 20;

std::optional<DecodingError> faultOf(const Json& written) {
    try {
        decodeValue<CompositionSpec>(written);
        return std::nullopt;
    } catch (const DecodingError& error) {
        return error;
    }
}

// A document that is read as far as it goes: what is wrong is left out, and the rest is tried again.
class Remainder {
public:
    explicit Remainder(const Json& written) : left_(written) {}

    // Nothing when the rest can be read, or nothing more can be left out.
    std::optional<Finding> next() {
        while (const auto error = faultOf(left_)) {
            const JsonPointer at = CompositionLint::pointerOf(error->path(), left_);
            const std::string path = originalPath(error->path(), at);
            const bool isOut = leaveOut(find(left_, at) || at.isRoot() ? at : at.parent());
            if (path == told_) {
                // Where a wrong value may not be missing either, it is wrong all the same, once.
                if (isOut) continue;
                return std::nullopt;   // nothing more can be left out
            }
            told_ = path;
            return CompositionLint::findingOf(
                CompositionLint::Rule::unreadable, path, replaced(error->message(), error->path(), path));
        }
        return std::nullopt;
    }

private:
    bool leaveOut(const JsonPointer& at) {
        if (at.isRoot() || !find(left_, at)) return false;
        if (find(left_, at.parent())->array()) removedElements_.push_back(at);
        left_ = applyPatch({{PatchOperation::Kind::remove, at, {}, {}}}, left_);
        return true;
    }

    // Elements that were left out have moved those after them.
    std::string originalPath(const std::string& path, const JsonPointer& at) const {
        if (removedElements_.empty()) return path;
        std::vector<std::string> tokens = at.tokens();
        for (auto removed = removedElements_.rbegin(); removed != removedElements_.rend(); ++removed) {
            const std::size_t depth = removed->tokens().size() - 1;
            if (tokens.size() <= depth || !std::equal(tokens.begin(), tokens.begin() + std::ptrdiff_t(depth),
                                              removed->tokens().begin()))
                continue;
            const std::size_t index = std::stoul(tokens[depth]);
            if (index >= std::stoul(removed->tokens()[depth])) tokens[depth] = std::to_string(index + 1);
        }
        // The text differs in its indices alone.
        std::string text = path;
        std::size_t from = 0;
        for (const std::string& token : tokens) {
            const std::size_t open = indexIn(token) ? text.find('[', from) : std::string::npos;
            if (open == std::string::npos) continue;
            text.replace(open + 1, text.find(']', open) - open - 1, token);
            from = open + 1;
        }
        return text;
    }

    static std::string replaced(std::string text, const std::string& from, const std::string& to) {
        const std::size_t at = from.empty() ? std::string::npos : text.find(from);
        return at == std::string::npos ? text : text.replace(at, from.size(), to);
    }

    Json left_;
    std::vector<JsonPointer> removedElements_;
    std::optional<std::string> told_;
};

}   // namespace

std::vector<Finding> readingFaults(const Json& written) {
    std::vector<Finding> faults;
    Remainder remainder(written);
    while (faults.size() < mostFaults) {
        auto fault = remainder.next();
        if (!fault) break;
        faults.push_back(std::move(*fault));
    }
    return faults;
}

}   // namespace tavix
