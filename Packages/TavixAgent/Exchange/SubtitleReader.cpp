#include "TavixAgent/Exchange/Subtitles.h"
#include "TavixBase/Failure.h"
#include "TavixBase/TextTrimming.h"
#include "TavixBase/Utf8.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <span>
#include <utility>

namespace tavix {
namespace {

constexpr int mostTold = 5;   // of the lines that cannot be read

// Takes digits off the front; nothing where there are none, or more than a time has.
std::optional<double> takeNumber(std::string_view& text) {
    std::size_t count = 0;
    double number = 0;
    while (count < text.size() && std::isdigit(static_cast<unsigned char>(text[count])))
        number = number * 10 + (text[count++] - '0');
    if (count == 0 || count > 6) return std::nullopt;
    text.remove_prefix(count);
    return number;
}

bool takeOneOf(std::string_view& text, std::string_view characters) {
    if (text.empty() || characters.find(text.front()) == std::string_view::npos) return false;
    text.remove_prefix(1);
    return true;
}

void skipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
}

// "1:02:03,450", "02:03.45" or "00:01".
std::optional<double> takeTime(std::string_view& text) {
    skipBlanks(text);
    double sec = 0;
    for (int part = 0; part < 3; ++part) {
        const auto number = takeNumber(text);
        if (!number) return std::nullopt;
        sec = sec * 60 + *number;
        if (!takeOneOf(text, ":")) break;
    }
    if (takeOneOf(text, ",.")) {
        const std::size_t before = text.size();
        const auto fraction = takeNumber(text);
        if (!fraction) return std::nullopt;
        // One division of whole numbers, so that a time comes back as the number that it was.
        double scale = 1;
        for (std::size_t digit = 0; digit < before - text.size(); ++digit) scale *= 10;
        sec = (sec * scale + *fraction) / scale;
    }
    return sec;
}

struct Timing {
    double fromSec = 0, toSec = 0;
    bool isPlaced = false;   // with a place on the screen, or other settings
};
std::optional<Timing> timingOf(std::string_view line) {
    const auto from = takeTime(line);
    skipBlanks(line);
    if (!from || !line.starts_with("-->")) return std::nullopt;
    line.remove_prefix(3);
    const auto to = takeTime(line);
    if (!to) return std::nullopt;
    return Timing{*from, *to, !trimmed(line).empty()};
}

bool isNumber(std::string_view line) {
    return !line.empty() && std::ranges::all_of(line, [](unsigned char c) { return std::isdigit(c); });
}

// The tags of each form; other text in angles is text.
bool isTag(std::string_view inside, bool isVtt) {
    constexpr std::array plain{"b", "i", "u", "s", "ruby", "rt"};   // and nothing more, or a class
    constexpr std::array annotated{"font", "c", "v", "lang"};       // with more after a blank
    std::string_view stamp = inside;
    if (isVtt && takeTime(stamp) && stamp.empty()) return true;
    if (inside.starts_with('/')) inside.remove_prefix(1);
    const std::string_view name = inside.substr(0, inside.find_first_of(isVtt ? " .\t" : " \t"));
    const auto isName = [&](std::string_view each) {
        return std::ranges::equal(
            each, name, [](char a, char b) { return a == std::tolower(static_cast<unsigned char>(b)); });
    };
    if (inside.find('<') != std::string_view::npos) return false;
    if (name.size() == inside.size() || inside[name.size()] == '.')
        if (std::ranges::any_of(std::span(plain).first(isVtt ? plain.size() : 4), isName)) return true;
    return std::ranges::any_of(std::span(annotated).first(isVtt ? annotated.size() : 1), isName);
}

struct PlainText {
    std::string text;
    bool hadTags = false;
};

void unescape(std::string& text) {
    constexpr std::pair<std::string_view, std::string_view> escapes[] = {{"&lt;", "<"}, {"&gt;", ">"},
        {"&nbsp;", "\u00A0"}, {"&lrm;", "\u200E"}, {"&rlm;", "\u200F"}, {"&amp;", "&"}};
    for (std::size_t at = 0; (at = text.find('&', at)) != std::string::npos; ++at)
        for (const auto& [name, character] : escapes)
            if (text.compare(at, name.size(), name) == 0) {
                text.replace(at, name.size(), character);
                at += character.size() - 1;
                break;
            }
}

PlainText plainOf(std::string_view line, bool isVtt) {
    PlainText plain;
    while (!line.empty()) {
        const char open = line.front();
        const std::size_t close = open == '<' ? line.find('>') : open == '{' ? line.find('}') : line.npos;
        const bool isStyle = close != line.npos && (open == '<' ? isTag(line.substr(1, close - 1), isVtt)
                                                                : !isVtt && line.starts_with("{\\"));
        if (isStyle) {
            plain.hadTags = true;
            line.remove_prefix(close + 1);
            continue;
        }
        const auto control = static_cast<unsigned char>(open);
        plain.text += control < 0x20 || control == 0x7F ? ' ' : open;
        line.remove_prefix(1);
    }
    if (isVtt) unescape(plain.text);
    plain.text = std::string(trimmed(plain.text));
    return plain;
}

// As UTF-8, which old files are not.
std::string decoded(std::string_view bytes, std::vector<Finding>& notes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        throw Failure("The captions are written in UTF-16; save the file as UTF-8.");
    bool isValid = true;
    for (std::size_t at = 0; at < bytes.size() && isValid;) {
        const std::size_t length = utf8::lengthAt(bytes, at);
        isValid = length > 0;
        at += length;
    }
    if (isValid) return std::string(bytes);
    notes.push_back(Finding::warning("captions-encoding",
        "The captions are not written in UTF-8; they are read as Latin-1. Look at letters with accents."));
    std::string text;
    for (const char c : bytes) utf8::append(text, static_cast<unsigned char>(c));
    return text;
}

class Reader {
public:
    explicit Reader(std::string_view bytes) : text_(decoded(bytes, reading_.notes)) {
        for (std::size_t at = 0; at < text_.size();) {
            const std::size_t end = std::min(text_.find('\n', at), text_.size());
            lines_.push_back(trimmed(std::string_view(text_).substr(at, end - at)));
            at = end + 1;
        }
        isVtt_ = !lines_.empty() && lines_.front().starts_with("WEBVTT");
    }

    SubtitleReading read() {
        std::size_t at = isVtt_ ? endOfBlock(0) : 0;
        while (at < lines_.size()) at = lines_[at].empty() ? at + 1 : readBlock(at);
        tell(tags_, "captions-styles", "had styles or places, which are not kept; style the layers instead.");
        tell(passedOver_, "captions-passed-over",
            "of notes, styles and regions are passed over: only the captions themselves are kept.");
        if (unread_ > mostTold)
            reading_.notes.push_back(Finding::warning("captions-unread",
                "And " + std::to_string(unread_ - mostTold) + " more such places cannot be read."));
        std::ranges::stable_sort(reading_.cues, {}, &SubtitleCue::fromSec);
        if (reading_.cues.empty())
            throw Failure("There are no captions in it: no line as \"00:00:01,000 --> 00:00:02,500\" with a "
                          "text below. Give it an .srt or a .vtt file.");
        return std::move(reading_);
    }

private:
    void tell(int count, const char* code, const char* what) {
        if (count > 0)
            reading_.notes.push_back(
                Finding::warning(code, std::to_string(count) + (count == 1 ? " place " : " places ") + what));
    }

    std::size_t endOfBlock(std::size_t at) const {
        while (at < lines_.size() && !lines_[at].empty()) ++at;
        return at;
    }

    void refuse(std::size_t line, const char* why) {
        if (++unread_ > mostTold) return;
        reading_.notes.push_back(
            Finding::warning("captions-unread", "Line " + std::to_string(line + 1) + " " + why));
    }

    std::size_t readBlock(std::size_t at) {
        if (isVtt_ && (lines_[at].starts_with("NOTE") || lines_[at] == "STYLE" || lines_[at] == "REGION") &&
            !(at + 1 < lines_.size() && timingOf(lines_[at + 1]))) {
            ++passedOver_;
            return endOfBlock(at);
        }
        auto timing = timingOf(lines_[at]);
        if (!timing && at + 1 < lines_.size()) timing = timingOf(lines_[++at]);   // after its number or name
        if (!timing) {
            refuse(at - (at > 0 && !lines_[at - 1].empty() ? 1 : 0),
                "begins no caption: a time as \"00:00:01,000 --> 00:00:02,500\" is missing.");
            return endOfBlock(at);
        }
        return readText(at, *timing);
    }

    std::size_t readText(std::size_t timingAt, const Timing& timing) {
        SubtitleCue cue{timing.fromSec, timing.toSec, {}};
        bool hadTags = timing.isPlaced;
        std::size_t at = timingAt + 1;
        for (; at < lines_.size() && !lines_[at].empty(); ++at) {
            // Where the empty line is missing, the next one begins all the same.
            if (timingOf(lines_[at])) break;
            if (isNumber(lines_[at]) && at + 1 < lines_.size() && timingOf(lines_[at + 1])) break;
            const PlainText plain = plainOf(lines_[at], isVtt_);
            hadTags = hadTags || plain.hadTags;
            if (!plain.text.empty()) cue.text += (cue.text.empty() ? "" : "\n") + plain.text;
        }
        if (cue.text.empty())
            refuse(timingAt, "has a time and no text below it.");
        else if (cue.toSec <= cue.fromSec)
            refuse(timingAt, "ends when it begins, or before.");
        else
            reading_.cues.push_back(std::move(cue));
        tags_ += hadTags ? 1 : 0;
        return at;
    }

    SubtitleReading reading_;
    std::string text_;
    std::vector<std::string_view> lines_;
    bool isVtt_ = false;
    int unread_ = 0, tags_ = 0, passedOver_ = 0;
};

}   // namespace

SubtitleReading readSubtitles(std::string_view bytes) { return Reader(bytes).read(); }

}   // namespace tavix
