#include "TavixCore/Paths/JsonTextTree.h"

#include "TavixCore/Support/JsonParser.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tavix {

struct JsonTextTree::Node {
    std::string_view text, mask;   // of the value alone
    std::unique_ptr<List> list;    // once it is taken apart; then the texts no longer count
};

struct JsonTextTree::Entry {
    std::string before;   // from the comma or the bracket to the key or the value
    std::string key;      // of an object, as it reads
    std::string lead;     // the key as written, up to the value
    Node value;
    std::string after;   // up to the comma; empty for the last one
};

struct JsonTextTree::List {
    char open = '{', close = '}';
    std::vector<Entry> entries;
    bool endsInComma = false;
    std::string tail;   // up to the closing bracket
};

namespace {

constexpr std::string_view whiteSpace = " \t\r\n";

// Steps over parts of a valid text; comments are blanks in it.
class Scanner {
public:
    Scanner(std::string_view mask, std::size_t at) : mask_(mask), at_(at) {}

    std::size_t at() const { return at_; }
    char peek() const { return at_ < mask_.size() ? mask_[at_] : '\0'; }
    void step() { ++at_; }
    void space() { at_ = std::min(mask_.find_first_not_of(whiteSpace, at_), mask_.size()); }
    void quoted() {
        for (++at_; at_ < mask_.size() && mask_[at_] != '"'; ++at_)
            if (mask_[at_] == '\\') ++at_;
        ++at_;
    }
    void value() {
        std::size_t depth = 0;
        do {
            const char mark = peek();
            if (mark == '"') {
                quoted();
                continue;
            }
            if (mark == '{' || mark == '[') ++depth;
            if (mark == '}' || mark == ']') --depth;
            if (depth == 0 && mark != '}' && mark != ']')
                at_ = std::min(mask_.find_first_of(" \t\r\n,]}", at_), mask_.size());
            else
                ++at_;
        } while (depth > 0 && at_ < mask_.size());
    }

private:
    std::string_view mask_;
    std::size_t at_;
};

std::string_view indentIn(std::string_view space, std::string_view otherwise) {
    const std::size_t line = space.rfind('\n');
    if (line == std::string_view::npos) return otherwise;
    const std::string_view indent = space.substr(line + 1);
    return indent.substr(0, indent.find_first_not_of(" \t"));   // a comment may follow it
}

// Up to where only space follows.
std::string upToWords(std::string_view space) {
    return std::string(space.substr(0, space.find_last_not_of(whiteSpace) + 1));
}

}   // namespace

JsonTextTree::JsonTextTree(std::string_view text, JsonDialect dialect)
    : dialect_(dialect), root_(std::make_unique<Node>()) {
    const bool isPlain = dialect_ == JsonDialect::strict;
    const std::string_view mask = isPlain ? text : keep(withoutComments(text));
    style_ = styleOf(mask);
    Scanner scanner(mask, mask.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    scanner.space();
    const std::size_t begin = scanner.at();
    scanner.value();
    before_ = text.substr(0, begin);
    after_ = text.substr(scanner.at());
    root_->text = text.substr(begin, scanner.at() - begin);
    root_->mask = mask.substr(begin, scanner.at() - begin);
}

JsonTextTree::~JsonTextTree() = default;

JsonTextTree::List& JsonTextTree::listOf(Node& node) {
    if (node.list) return *node.list;
    node.list = std::make_unique<List>();
    List& list = *node.list;
    Scanner scanner(node.mask, 0);
    const auto taken = [&](std::size_t from) { return node.text.substr(from, scanner.at() - from); };
    list.open = scanner.peek();
    list.close = list.open == '{' ? '}' : ']';
    scanner.step();
    for (std::size_t from = scanner.at();; from = scanner.at()) {
        scanner.space();
        if (scanner.peek() == list.close) {
            list.endsInComma = !list.entries.empty() && from > 0 && node.mask[from - 1] == ',';
            list.tail = taken(from);
            return list;
        }
        Entry& entry = list.entries.emplace_back();
        entry.before = taken(from);
        from = scanner.at();
        if (list.open == '{') {
            scanner.quoted();
            entry.key = *parseJson(taken(from)).text();
            scanner.space();
            scanner.step();
            scanner.space();
            entry.lead = taken(from);
            from = scanner.at();
        }
        scanner.value();
        entry.value.text = taken(from);
        entry.value.mask = node.mask.substr(from, scanner.at() - from);
        from = scanner.at();
        scanner.space();
        if (scanner.peek() != ',') {
            list.tail = taken(from);
            return list;
        }
        entry.after = taken(from);
        scanner.step();
    }
}

// Of equal keys the last one counts, as in reading.
std::size_t JsonTextTree::indexOf(const List& list, const std::string& token) {
    if (list.open == '[') return token == "-" ? list.entries.size() : *indexIn(token);
    for (std::size_t i = list.entries.size(); i-- > 0;)
        if (list.entries[i].key == token) return i;
    return list.entries.size();
}

JsonTextTree::Found JsonTextTree::find(const std::vector<std::string>& tokens, std::size_t count) {
    Found found{root_.get(), std::string(indentIn(before_, ""))};
    for (std::size_t i = 0; i < count; ++i) {
        List& list = listOf(*found.node);
        Entry& entry = list.entries[indexOf(list, tokens[i])];
        found.indent = indentIn(entry.before, found.indent);
        found.node = &entry.value;
    }
    return found;
}

std::string_view JsonTextTree::keep(std::string text) { return kept_.emplace_back(std::move(text)); }

void JsonTextTree::replace(const JsonPointer& path, const Json& value) {
    const Found found = find(path.tokens(), path.tokens().size());
    const std::size_t lead = path.isRoot() ? 0 : path.tokens().back().size() + style_.colon.size() + 2;
    *found.node = fresh(styledJson(value, style_, found.indent, found.indent.size() + lead));
}

void JsonTextTree::add(const JsonPointer& path, const Json& value) {
    insert(path, [&](const std::string& indent, std::size_t columns) {
        return styledJson(value, style_, indent, columns);
    });
}

void JsonTextTree::remove(const JsonPointer& path) {
    List& list = listOf(*find(path.tokens(), path.tokens().size() - 1).node);
    for (std::size_t i = indexOf(list, path.tokens().back()); i < list.entries.size();) {
        takeOut(list, i);
        if (list.open == '[') break;
        i = indexOf(list, path.tokens().back());   // the same key once more
    }
    if (!list.entries.empty()) return;
    list.endsInComma = false;
    if (upToWords(list.tail).empty()) list.tail.clear();
}

// A comment in the line of the entry before stays.
void JsonTextTree::takeOut(List& list, std::size_t index) const {
    const bool isLast = index + 1 == list.entries.size();
    const std::string& before = list.entries[index].before;
    const std::string words = upToWords(before.substr(0, before.find('\n')));
    std::string& next = isLast ? list.tail : list.entries[index + 1].before;
    if (index == 0 && !isLast && next.find('\n') == std::string::npos)
        next = before;
    else if (!words.empty())
        next = words + (next.find('\n') == std::string::npos ? style_.lineBreak : "") + next;
    if (isLast && index > 0 && !list.endsInComma) {
        std::string& after = list.entries[index - 1].after;
        list.tail.insert(0, upToWords(after));
        after.clear();
    }
    list.entries.erase(list.entries.begin() + std::ptrdiff_t(index));
}

void JsonTextTree::copy(const JsonPointer& from, const JsonPointer& path) {
    const Found found = find(from.tokens(), from.tokens().size());
    std::string text;
    write(*found.node, text);
    insert(
        path, [&](const std::string& indent, std::size_t) { return reindented(text, found.indent, indent); });
}

void JsonTextTree::move(const JsonPointer& from, const JsonPointer& path) {
    if (from == path) return;
    const Found found = find(from.tokens(), from.tokens().size());
    std::string text;
    write(*found.node, text);
    remove(from);
    insert(
        path, [&](const std::string& indent, std::size_t) { return reindented(text, found.indent, indent); });
}

JsonTextTree::Node JsonTextTree::fresh(std::string text) {
    const std::string_view kept = keep(std::move(text));
    const bool isPlain = dialect_ == JsonDialect::strict;
    return {kept, isPlain ? kept : keep(withoutComments(kept)), nullptr};
}

void JsonTextTree::insert(const JsonPointer& path, const Laid& laid) {
    if (path.isRoot()) {
        *root_ = fresh(laid(std::string(indentIn(before_, "")), 0));
        return;
    }
    const std::string& token = path.tokens().back();
    const Found holder = find(path.tokens(), path.tokens().size() - 1);
    List& list = listOf(*holder.node);
    std::size_t index = indexOf(list, token);
    const bool isThere = list.open == '{' && index < list.entries.size();
    if (!isThere) {
        if (list.open == '{' && list.entries.size() > 1 &&
            std::ranges::is_sorted(list.entries, {}, &Entry::key))
            index = std::size_t(
                std::ranges::upper_bound(list.entries, token, {}, &Entry::key) - list.entries.begin());
        makeRoom(list, index, holder.indent);
        list.entries[index].key = token;
        if (list.open == '{') list.entries[index].lead = quotedJson(token) + style_.colon;
    }
    Entry& entry = list.entries[index];
    const std::string indent(indentIn(entry.before, holder.indent));
    entry.value = fresh(laid(indent, indent.size() + entry.lead.size()));
}

// An entry without a value, which stands as its neighbours do: in a line of its own, or after them in theirs.
// A comment in the line of the entry before stays there, and comments above the entry after stay above it.
void JsonTextTree::makeRoom(List& list, std::size_t index, const std::string& indent) const {
    const std::size_t count = list.entries.size();
    const std::string* first = count > 0 ? &list.entries.front().before : nullptr;
    const bool hasLines = first ? first->find('\n') != std::string::npos : !style_.lineBreak.empty();
    const std::string inner = indent + style_.unit;
    const std::string line = style_.lineBreak + std::string(first ? indentIn(*first, inner) : inner);
    Entry entry;
    if (count == 0) {
        const std::string words = upToWords(list.tail);
        entry.before = words + (hasLines || !words.empty() ? line : "");
        list.tail = entry.before.empty() ? "" : style_.lineBreak + indent;
    } else if (index == count) {
        const std::string words = upToWords(list.tail);
        entry.before = words + (hasLines || !words.empty() ? line
                                   : count > 1             ? list.entries[1].before
                                                           : style_.gap);
        list.tail.erase(0, words.size());
    } else {
        std::string& next = list.entries[index].before;
        const std::size_t lineEnd = std::min(next.find('\n'), next.size());
        entry.before = next;
        if (upToWords(next).empty()) {
            if (index == 0 && !hasLines) next = count > 1 ? list.entries[1].before : style_.gap;
        } else {
            entry.before = upToWords(next.substr(0, lineEnd)) + line;
            next = lineEnd < next.size() ? style_.lineBreak + next.substr(lineEnd + 1) : line;
        }
    }
    list.entries.insert(list.entries.begin() + std::ptrdiff_t(index), std::move(entry));
}

void JsonTextTree::write(const Node& node, std::string& into) {
    if (!node.list) {
        into += node.text;
        return;
    }
    const List& list = *node.list;
    into += list.open;
    for (std::size_t i = 0; i < list.entries.size(); ++i) {
        const Entry& entry = list.entries[i];
        into += entry.before + entry.lead;
        write(entry.value, into);
        into += entry.after;
        if (i + 1 < list.entries.size() || list.endsInComma) into += ',';
    }
    into += list.tail;
    into += list.close;
}

std::string JsonTextTree::text() const {
    std::string text(before_);
    write(*root_, text);
    return text.append(after_);
}

}   // namespace tavix
