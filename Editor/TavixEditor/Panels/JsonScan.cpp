#include "TavixEditor/Panels/JsonScan.h"

#include "TavixCore/Paths/JsonTextStyle.h"

#include <algorithm>
#include <utility>

namespace tavix::editor {

struct JsonScan::Frame {
    bool isObject = false;
    JsonPointer at;
    std::size_t span = 0;    // of itself
    std::size_t index = 0;   // of a list
    std::string key = {};    // whose value comes next
    std::size_t keyFrom = 0;
    bool awaitsValue = false;
};

class JsonScan::Run {
public:
    Run(JsonScan& scan, std::string_view text, std::size_t cursor)
        : scan_(scan), text_(text), cursorAt_(std::min(cursor, text.size())) {}

    void go() {
        while (at_ < text_.size()) {
            if (at_ >= cursorAt_) noteCursor(cursorAt_, cursorAt_);
            const char c = text_[at_];
            if (c == '{' || c == '[')
                open(c == '{');
            else if (c == '}' || c == ']')
                close();
            else if (c == '"')
                word(endOfText());
            else if (c == ':' || c == ',')
                mark(c);
            else if (isSpace(c))
                ++at_;
            else
                word(endOfWord());
        }
        noteCursor(cursorAt_, cursorAt_);
        while (!frames_.empty()) close();
    }

private:
    static bool isSpace(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

    JsonPointer place() const {
        if (frames_.empty()) return {};
        const Frame& top = frames_.back();
        return top.isObject ? top.at / std::string_view(top.key) : top.at / top.index;
    }

    void noteCursor(std::size_t from, std::size_t to) {
        if (std::exchange(isNoted_, true)) return;
        JsonCursor& cursor = scan_.cursor_;
        cursor.isInside = !frames_.empty();
        if (cursor.isInside) cursor.holder = frames_.back().at;
        cursor.isKey = cursor.isInside && frames_.back().isObject && !frames_.back().awaitsValue;
        cursor.value = place();
        cursor.from = from;
        cursor.to = to;
    }

    std::size_t beginValue() {
        const bool isMember = !frames_.empty() && frames_.back().isObject;
        scan_.spans_.push_back({place(), isMember ? frames_.back().keyFrom : at_, at_, text_.size()});
        return scan_.spans_.size() - 1;
    }

    void open(bool isObject) {
        const std::size_t span = beginValue();
        frames_.push_back({isObject, scan_.spans_[span].at, span});
        ++at_;
    }

    void close() {
        if (at_ < text_.size()) ++at_;
        if (frames_.empty()) return;
        scan_.spans_[frames_.back().span].to = at_;
        frames_.pop_back();
    }

    void mark(char c) {
        if (!frames_.empty()) {
            Frame& top = frames_.back();
            top.awaitsValue = c == ':';
            if (c == ',') ++top.index;
        }
        ++at_;
    }

    // A text that has no end runs to that of its line.
    std::size_t endOfText() const {
        std::size_t end = at_ + 1;
        while (end < text_.size() && text_[end] != '"' && text_[end] != '\n')
            end += text_[end] == '\\' ? 2 : 1;
        return std::min(end < text_.size() && text_[end] == '"' ? end + 1 : end, text_.size());
    }
    std::size_t endOfWord() const {
        const std::size_t end = text_.find_first_of(" \n\t\r,:{}[]\"", at_);
        return std::min(end, text_.size());
    }

    void word(std::size_t end) {
        if (cursorAt_ > at_ && cursorAt_ <= end) noteCursor(at_, end);
        const bool isText = text_[at_] == '"';
        std::string_view inner = text_.substr(at_, end - at_);
        if (isText)
            inner = inner.substr(1, inner.size() - (inner.size() > 1 && inner.ends_with('"') ? 2 : 1));
        if (!frames_.empty() && frames_.back().isObject && !frames_.back().awaitsValue) {
            frames_.back().key = inner;
            frames_.back().keyFrom = at_;
        } else {
            const std::size_t span = beginValue();
            scan_.spans_[span].to = end;
            if (isText) scan_.texts_[scan_.spans_[span].at.text()] = inner;
        }
        at_ = end;
    }

    JsonScan& scan_;
    std::string_view text_;
    std::size_t cursorAt_, at_ = 0;
    bool isNoted_ = false;
    std::vector<Frame> frames_;
};

JsonScan::JsonScan(std::string_view text, std::size_t cursor) { Run(*this, text, cursor).go(); }

const JsonSpan* JsonScan::find(const JsonPointer& at) const {
    const auto found = std::ranges::find(spans_.rbegin(), spans_.rend(), at, &JsonSpan::at);
    return found == spans_.rend() ? nullptr : &*found;
}

const JsonSpan* JsonScan::nearest(JsonPointer at) const {
    for (;;) {
        if (const JsonSpan* span = find(at)) return span;
        if (at.isRoot()) return nullptr;
        at = at.parent();
    }
}

std::vector<std::string> JsonScan::keysOf(const JsonPointer& object) const {
    std::vector<std::string> keys;
    for (const JsonSpan& span : spans_)
        if (!span.at.isRoot() && span.at.tokens().size() == object.tokens().size() + 1 &&
            object.holds(span.at))
            keys.push_back(span.at.tokens().back());
    return keys;
}

std::optional<std::string> JsonScan::textAt(const JsonPointer& at) const {
    const auto found = texts_.find(at.text());
    return found == texts_.end() ? std::nullopt : std::optional(found->second);
}

namespace {

std::string_view indentOf(std::string_view text, std::size_t at) {
    const std::size_t before = text.substr(0, at).rfind('\n');
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
    const std::size_t end = std::min(text.find_first_not_of(" \t", begin), at);
    return text.substr(begin, end - begin);
}

}   // namespace

std::string dedented(std::string_view text, const JsonSpan& span) {
    return reindented(text.substr(span.from, span.to - span.from), indentOf(text, span.from), "");
}

std::string withPart(std::string_view text, const JsonSpan& span, std::string_view part) {
    return std::string(text.substr(0, span.from)) + reindented(part, "", indentOf(text, span.from)) +
           std::string(text.substr(span.to));
}

}   // namespace tavix::editor
