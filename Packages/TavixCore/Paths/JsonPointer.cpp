#include "TavixCore/Paths/JsonPointer.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Field.h"

#include <algorithm>
#include <charconv>
#include <span>

namespace tavix {

namespace {

// "~1" is a slash and "~0" a tilde.
std::string unescaped(std::string_view token, std::string_view whole) {
    std::string plain;
    for (std::size_t i = 0; i < token.size(); ++i) {
        if (token[i] != '~') {
            plain += token[i];
            continue;
        }
        const char escaped = i + 1 < token.size() ? token[++i] : ' ';
        if (escaped != '0' && escaped != '1')
            throw Failure(
                "\"" + std::string(whole) +
                "\" is no JSON Pointer: a \"~\" must be followed by 0, for itself, or 1, for \"/\".");
        plain += escaped == '0' ? '~' : '/';
    }
    return plain;
}

std::string escaped(std::string_view token) {
    std::string text;
    for (const char c : token) {
        if (c == '~')
            text += "~0";
        else if (c == '/')
            text += "~1";
        else
            text += c;
    }
    return text;
}

using Tokens = std::span<const std::string>;

Located locateIn(const Type& type, void* value, Tokens tokens);

Located locateInRecord(const RecordType& type, void* record, Tokens tokens) {
    if (type.form == RecordType::Form::list) {
        const auto index = indexIn(tokens.front());
        if (!index || *index >= type.rows.size()) return {};
        const Field& row = type.rows[*index];
        return locateIn(row.type(), row.reach(record), tokens.subspan(1));
    }
    for (const Field& row : type.rows) {
        if (!row.reach) continue;
        const bool isFlat = row.key.empty();
        if (!isFlat && row.key != tokens.front()) continue;
        const Located found = locateIn(row.type(), row.reach(record), isFlat ? tokens : tokens.subspan(1));
        if (found || !isFlat) return found;
    }
    return {};
}

Located locateIn(const Type& type, void* value, Tokens tokens) {
    if (type.kind == Type::Kind::optional) {
        const Held held = heldIn(type, value);
        return held.value ? locateIn(*held.type, held.value, tokens) : Located{};
    }
    if (tokens.empty()) return {&type, value};
    switch (type.kind) {
    case Type::Kind::list: {
        const auto& list = static_cast<const ListType&>(type);
        const auto index = indexIn(tokens.front());
        if (!index || *index >= list.size(value)) return {};
        return locateIn(list.element(), list.at(value, *index), tokens.subspan(1));
    }
    case Type::Kind::map: {
        const auto& map = static_cast<const MapType&>(type);
        for (const MapType::Entry& entry : map.entries(value))
            if (*entry.key == tokens.front()) return locateIn(map.value(), entry.value, tokens.subspan(1));
        return {};
    }
    case Type::Kind::record: return locateInRecord(static_cast<const RecordType&>(type), value, tokens);
    case Type::Kind::choice: {
        const Alternative& row = static_cast<const ChoiceType&>(type).heldBy(value);
        if (!row.payloadKey.empty()) {
            if (row.payloadKey != tokens.front()) return {};
            tokens = tokens.subspan(1);
        }
        return locateIn(row.type(), row.held(value), tokens);
    }
    default: return {};
    }
}

}   // namespace

JsonPointer JsonPointer::parse(std::string_view text) {
    JsonPointer pointer;
    if (text.empty()) return pointer;
    if (!text.starts_with('/'))
        throw Failure(
            "\"" + std::string(text) + "\" is no JSON Pointer: it must be empty or begin with \"/\".");
    for (std::size_t start = 1; start <= text.size();) {
        const std::size_t end = std::min(text.find('/', start), text.size());
        pointer.tokens_.push_back(unescaped(text.substr(start, end - start), text));
        start = end + 1;
    }
    return pointer;
}

std::string JsonPointer::text() const {
    std::string text;
    for (const std::string& token : tokens_) text.append("/").append(escaped(token));
    return text;
}

JsonPointer JsonPointer::parent() const {
    JsonPointer above = *this;
    above.tokens_.pop_back();
    return above;
}

JsonPointer JsonPointer::operator/(std::string_view key) const {
    JsonPointer below = *this;
    below.tokens_.emplace_back(key);
    return below;
}

JsonPointer JsonPointer::operator/(std::size_t index) const { return *this / std::to_string(index); }

bool JsonPointer::holds(const JsonPointer& other) const {
    return other.tokens_.size() >= tokens_.size() &&
           std::equal(tokens_.begin(), tokens_.end(), other.tokens_.begin());
}

std::optional<std::size_t> indexIn(std::string_view token) {
    if (token.empty() || (token.size() > 1 && token.front() == '0')) return std::nullopt;
    std::size_t index = 0;
    const char* const end = token.data() + token.size();
    const auto read = std::from_chars(token.data(), end, index);
    if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
    return index;
}

const Json* find(const Json& document, const JsonPointer& pointer) {
    const Json* found = &document;
    for (const std::string& token : pointer.tokens()) {
        if (const JsonArray* elements = found->array()) {
            const auto index = indexIn(token);
            found = index && *index < elements->size() ? &(*elements)[*index] : nullptr;
        } else {
            found = found->find(token);
        }
        if (!found) return nullptr;
    }
    return found;
}

Located locate(const Type& type, void* value, const JsonPointer& pointer) {
    return locateIn(type, value, pointer.tokens());
}

}   // namespace tavix
