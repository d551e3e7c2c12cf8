#include "TavixAgent/Hosts/TomlTable.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Paths/JsonTextStyle.h"
#include "TavixCore/Support/JsonParser.h"

#include <algorithm>

namespace tavix::TomlTable {
namespace {

struct Line {
    std::size_t begin = 0, end = 0;   // in the text, the line feed included
    std::string header;               // the name in brackets, where the line is a header
    std::string key;                  // what stands before "=", where it is a row
};

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

// "a . "b"" is a.b.
std::string plainName(std::string_view name) {
    std::string plain;
    for (const char c : name)
        if (c != ' ' && c != '\t' && c != '"' && c != '\'') plain += c;
    return plain;
}

// Where the strings of a line leave us: within a text of several lines, and how deep in lists.
struct Inside {
    std::string_view quotes;   // that end the text we are in; empty outside
    int depth = 0;             // of lists and inline tables

    bool isOutside() const { return quotes.empty() && depth == 0; }

    void step(std::string_view line) {
        for (std::size_t at = 0; at < line.size();) {
            if (!quotes.empty()) {
                const bool isEscape = line[at] == '\\' && quotes.front() == '"';
                if (line.substr(at).starts_with(quotes)) {
                    at += quotes.size();
                    quotes = {};
                } else {
                    at += isEscape ? 2 : 1;
                }
                continue;
            }
            if (line[at] == '#') return;
            for (const std::string_view mark : {std::string_view(R"(""")"), std::string_view("'''"),
                     std::string_view("\""), std::string_view("'")})
                if (line.substr(at).starts_with(mark)) {
                    quotes = mark;
                    break;
                }
            if (line[at] == '[' || line[at] == '{') ++depth;
            if ((line[at] == ']' || line[at] == '}') && depth > 0) --depth;
            at += std::max<std::size_t>(quotes.size(), 1);
        }
        if (quotes.size() == 1) quotes = {};   // a text of one line ends with it
    }
};

std::vector<Line> linesOf(std::string_view text) {
    std::vector<Line> lines;
    Inside inside;
    for (std::size_t at = 0; at < text.size();) {
        Line line{at, std::min(text.find('\n', at), text.size() - 1) + 1, {}, {}};
        const std::string_view content = trimmed(text.substr(at, line.end - at));
        if (inside.isOutside() && content.starts_with('[')) {
            const bool isList = content.starts_with("[[");
            const std::string_view name = content.substr(isList ? 2 : 1);
            line.header = plainName(name.substr(0, name.find(']')));
            if (isList) line.header += "[]";   // another thing than a table of that name
        } else {
            if (inside.isOutside() && !content.starts_with('#'))
                if (const std::size_t equals = content.find('='); equals != std::string_view::npos)
                    line.key = plainName(content.substr(0, equals));
            inside.step(text.substr(at, line.end - at));
        }
        at = line.end;
        lines.push_back(std::move(line));
    }
    return lines;
}

bool isIn(const std::string& header, const std::string& name) {
    return header == name || header.starts_with(name + ".");
}

void requireNoOtherForm(const std::vector<Line>& lines, const std::string& name) {
    std::string table;
    for (const Line& line : lines) {
        if (!line.header.empty()) table = line.header;
        if (line.key.empty() || isIn(table, name)) continue;
        const std::string full = table.empty() ? line.key : table + "." + line.key;
        if (isIn(full, name) || name.starts_with(full + "."))
            throw Failure("\"" + full + "\" is written as a key with a value; write it as a table [" + name +
                          "], or add the entry by hand.");
    }
}

// The first line of the table and the one past its last row; what only spaces and comments hold after that
// belongs to the next one.
struct Extent {
    std::size_t first, last;
};
std::optional<Extent> extentOf(
    std::string_view text, const std::vector<Line>& lines, const std::string& name) {
    const auto header = std::ranges::find(lines, name, &Line::header);
    if (header == lines.end()) return std::nullopt;
    const auto first = std::size_t(header - lines.begin());
    std::size_t last = first + 1;
    for (std::size_t i = first + 1; i < lines.size() && lines[i].header.empty(); ++i) {
        const std::string_view content = trimmed(text.substr(lines[i].begin, lines[i].end - lines[i].begin));
        if (!content.empty() && !content.starts_with('#')) last = i + 1;
    }
    return Extent{first, last};
}

std::string keyOf(const std::string& row) { return plainName(row.substr(0, row.find('='))); }

}   // namespace

std::string quoted(std::string_view text) { return quotedJson(text); }   // the escapes are the same

std::string with(std::string_view text, const std::string& name, const std::vector<std::string>& rows) {
    const std::vector<Line> lines = linesOf(text);
    requireNoOtherForm(lines, name);
    const auto extent = extentOf(text, lines, name);
    std::string result;
    if (!extent) {
        result = text;
        if (!result.empty() && !result.ends_with('\n')) result += '\n';
        if (!result.empty()) result += '\n';
        result += "[" + name + "]\n";
        for (const std::string& row : rows) result += row + "\n";
        return result;
    }
    std::vector<std::string> left = rows;
    result = text.substr(0, lines[extent->first].end);
    if (!result.ends_with('\n')) result += '\n';
    for (std::size_t i = extent->first + 1; i < extent->last; ++i) {
        const auto row = std::ranges::find(left, lines[i].key, keyOf);
        std::size_t next = i + 1;   // a value may take several lines
        while (next < extent->last && lines[next].key.empty() &&
               !trimmed(text.substr(lines[next].begin, lines[next].end - lines[next].begin)).starts_with('#'))
            ++next;
        const std::string_view old = text.substr(lines[i].begin, lines[next - 1].end - lines[i].begin);
        if (lines[i].key.empty() || row == left.end()) {
            result += text.substr(lines[i].begin, lines[i].end - lines[i].begin);
            continue;
        }
        result += trimmed(old) == *row ? std::string(old) : *row + "\n";
        left.erase(row);
        i = next - 1;
    }
    for (const std::string& row : left) {
        if (!result.ends_with('\n')) result += '\n';
        result += row + "\n";
    }
    if (extent->last < lines.size()) result += text.substr(lines[extent->last].begin);
    return result;
}

std::string without(std::string_view text, const std::string& name) {
    const std::vector<Line> lines = linesOf(text);
    std::string result;
    bool isGone = false;
    std::size_t last = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!lines[i].header.empty()) {
            isGone = isIn(lines[i].header, name);
            if (isGone) last = extentOf(text, lines, lines[i].header)->last;
        }
        if (!isGone || i >= last) result += text.substr(lines[i].begin, lines[i].end - lines[i].begin);
    }
    // The line that parted it from what is before goes with it.
    if (result.size() < text.size() && result.ends_with("\n\n") && !text.ends_with("\n\n")) result.pop_back();
    return result;
}

std::optional<std::string> valueIn(std::string_view text, const std::string& name, std::string_view key) {
    const std::vector<Line> lines = linesOf(text);
    const auto extent = extentOf(text, lines, name);
    if (!extent) return std::nullopt;
    for (std::size_t i = extent->first + 1; i < extent->last; ++i) {
        if (lines[i].key != key) continue;
        const std::string_view row = trimmed(text.substr(lines[i].begin, lines[i].end - lines[i].begin));
        const std::string_view value = trimmed(row.substr(row.find('=') + 1));
        if (value.starts_with('\'')) return std::string(value.substr(1, value.find('\'', 1) - 1));
        try {
            const std::size_t close = value.find_last_of('"');
            return parseJson(value.substr(0, close + 1)).stringValue();
        } catch (const Failure&) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

}   // namespace tavix::TomlTable
