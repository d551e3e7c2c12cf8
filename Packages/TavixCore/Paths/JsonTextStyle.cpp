#include "TavixCore/Paths/JsonTextStyle.h"

#include "TavixCore/Support/JsonWriter.h"

#include <algorithm>

namespace tavix {
namespace {

constexpr std::size_t mostColumns = 100;
constexpr std::string_view blanks = " \t", spaces = " \t\r\n";

bool isList(const Json& json) { return json.array() || json.object(); }

// The marks of a JSON text outside of its strings.
template <class Take> void eachMark(std::string_view text, Take take) {
    bool isQuoted = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '"') isQuoted = !isQuoted;
        if (text[at] == '\\' && isQuoted)
            ++at;
        else if (!isQuoted)
            take(at);
    }
}

class StyledWriter {
public:
    StyledWriter(const JsonTextStyle& style, std::string_view indent) : style_(style), indent_(indent) {}

    void value(const Json& json, std::size_t columns) {
        if (const JsonArray* elements = json.array())
            list('[', *elements, ']', json, columns, [](const Json&) { return std::string(); });
        else if (const JsonObject* members = json.object())
            list('{', *members, '}', json, columns,
                [&](const JsonMember& member) { return quotedJson(member.key) + style_.colon; });
        else
            out_ += writeJson(json);
    }
    std::string take() { return std::move(out_); }

private:
    static const Json& valueOf(const Json& element) { return element; }
    static const Json& valueOf(const JsonMember& member) { return member.value; }

    template <class Items, class Lead>
    void list(char open, const Items& items, char close, const Json& json, std::size_t columns, Lead lead) {
        out_ += open;
        const bool isInline = items.empty() || style_.lineBreak.empty() || isInline_ || fits(json, columns);
        if (!isInline) indent_ += style_.unit;
        bool isFirst = true;
        for (const auto& item : items) {
            if (!isFirst) out_ += ',';
            if (!isInline)
                out_ += style_.lineBreak + indent_;
            else if (!isFirst)
                out_ += style_.gap;
            isFirst = false;
            const std::string key = lead(item);
            out_ += key;
            value(valueOf(item), indent_.size() + key.size());
        }
        if (!isInline) {
            indent_.resize(indent_.size() - style_.unit.size());
            out_ += style_.lineBreak + indent_;
        }
        out_ += close;
    }

    bool fits(const Json& json, std::size_t columns) const {
        if (!style_.mayShareLines) return false;
        StyledWriter line(style_, "");
        line.isInline_ = true;
        line.value(json, 0);
        return columns + line.out_.size() <= mostColumns;
    }

    const JsonTextStyle& style_;
    std::string indent_, out_;
    bool isInline_ = false;
};

}   // namespace

JsonTextStyle styleOf(std::string_view text) {
    JsonTextStyle style;
    const std::size_t lineEnd = text.find('\n');
    const bool hasLines = lineEnd != std::string_view::npos &&
                          text.find_first_not_of(spaces, lineEnd) != std::string_view::npos;
    if (hasLines) style.lineBreak = lineEnd > 0 && text[lineEnd - 1] == '\r' ? "\r\n" : "\n";
    bool hasColon = false, sharesLines = false, hasLists = false;
    eachMark(text, [&](std::size_t at) {
        if (text[at] == '\n' && style.unit.empty()) {
            const std::size_t end = std::min(text.find_first_not_of(blanks, at + 1), text.size());
            if (end < text.size() && text[end] != '\r' && text[end] != '\n')
                style.unit = text.substr(at + 1, end - at - 1);
        } else if (text[at] == ':' && !hasColon) {
            hasColon = true;
            const std::size_t begin = text.find_last_not_of(blanks, at - 1) + 1;
            const std::size_t end = std::min(text.find_first_not_of(blanks, at + 1), text.size());
            style.colon = text.substr(begin, end - begin);
        } else if (text[at] == '{' || text[at] == '[') {
            const std::size_t next = std::min(text.find_first_not_of(blanks, at + 1), text.size() - 1);
            const bool isEmpty = text[next] == '}' || text[next] == ']';
            hasLists = hasLists || !isEmpty;
            sharesLines = sharesLines || (!isEmpty && text[next] != '\r' && text[next] != '\n');
        }
    });
    if (hasColon && style.lineBreak.empty() && !style.colon.ends_with(' ')) style.gap.clear();
    style.mayShareLines = sharesLines || !hasLists;
    if (style.unit.empty()) style.unit = "  ";
    return style;
}

std::string styledJson(
    const Json& value, const JsonTextStyle& style, std::string_view indent, std::size_t columns) {
    if (!isList(value)) return writeJson(value);
    writeJson(value);   // refuses what is not finite, by its path
    StyledWriter writer(style, indent);
    writer.value(value, columns);
    return writer.take();
}

std::string reindented(std::string_view text, std::string_view from, std::string_view to) {
    std::string moved;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
        moved += text.substr(at, end - at);
        at = end;
        if (!moved.ends_with('\n')) break;
        if (text.substr(at).starts_with(from)) {
            moved += to;
            at += from.size();
        }
    }
    return moved;
}

std::string quotedJson(std::string_view characters) { return writeJson(Json(characters)); }

}   // namespace tavix
