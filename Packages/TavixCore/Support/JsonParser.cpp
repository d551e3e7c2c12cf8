#include "TavixCore/Support/JsonParser.h"

#include "TavixBase/Utf8.h"
#include "TavixCore/Support/DecodingError.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>
#include <utility>

namespace tavix {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }

bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

[[noreturn]] void refuse(const std::string& sentence) {
    throw DecodingError(DecodingError::Kind::dataCorrupted, {}, sentence);
}

// A number of valid grammar that no float can hold is either too large or too near to zero; which, is told by
// the decimal exponent of its first digit that is not 0.
bool isTooSmall(std::string_view number) {
    const std::size_t exponentAt = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, exponentAt);
    const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<long long>(mantissa.find_first_of("123456789"));
    if (exponentAt < number.size()) {
        long long exponent = 0;
        std::string_view digits = number.substr(exponentAt + 1);
        if (digits.starts_with('+')) digits.remove_prefix(1);
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        if (read.ec != std::errc{}) return digits.starts_with('-');
        return exponent + point - first < 0;
    }
    return point < first;
}

class Parser {
public:
    Parser(std::string_view text, const JsonLimits& limits) : text_(text), limits_(limits) {}

    Json document() {
        if (text_.starts_with("\xEF\xBB\xBF")) at_ = 3;   // a byte order mark
        skipSpace();
        Json root = value(1);
        skipSpace();
        if (at_ < text_.size()) failHere("nothing more after the end of the document");
        return root;
    }

private:
    Json value(std::size_t depth) {
        if (++valueCount_ > limits_.maxValues)
            refuse("The document holds more than " + std::to_string(limits_.maxValues) +
                   " values, which is more than is read; split it into smaller ones.");
        if (depth > limits_.maxDepth)
            refuse("The document is nested more than " + std::to_string(limits_.maxDepth) +
                   " levels deep at " + place(at_) + "; no document needs that.");
        switch (peek()) {
        case '{': return object(depth);
        case '[': return array(depth);
        case '"': return string();
        case 't': return word("true", true);
        case 'f': return word("false", false);
        case 'n': return word("null", nullptr);
        default: return number();
        }
    }

    // Lists and objects get room for as many at once. What needs less gives it back, for there may be many.
    static constexpr std::size_t usualSize = 4;

    Json object(std::size_t depth) {
        std::vector<JsonMember> members;
        ++at_;
        skipSpace();
        if (accept('}')) return JsonObject();
        members.reserve(usualSize);
        do {
            skipSpace();
            if (peek() != '"') failHere("a key in quotes");
            JsonMember& member = members.emplace_back();
            member.key = string();
            skipSpace();
            if (!accept(':')) failHere("\":\" after a key");
            skipSpace();
            member.value = value(depth + 1);
            skipSpace();
        } while (accept(','));
        if (!accept('}')) failHere("\",\" or \"}\" after a value");
        if (members.size() < usualSize) members.shrink_to_fit();
        return JsonObject::of(std::move(members));
    }

    Json array(std::size_t depth) {
        JsonArray elements;
        ++at_;
        skipSpace();
        if (accept(']')) return elements;
        elements.reserve(usualSize);
        do {
            skipSpace();
            elements.push_back(value(depth + 1));
            skipSpace();
        } while (accept(','));
        if (!accept(']')) failHere("\",\" or \"]\" after a value");
        if (elements.size() < usualSize) elements.shrink_to_fit();
        return elements;
    }

    Json word(std::string_view spelling, Json meaning) {
        if (text_.substr(at_, spelling.size()) != spelling) failHere("a value");
        at_ += spelling.size();
        return meaning;
    }

    Json number() {
        const std::size_t begin = at_;
        accept('-');
        if (!isDigit(peek())) {
            at_ = begin;
            failHere("a value");
        }
        if (!accept('0')) skipDigits();
        const bool isWhole = peek() != '.' && peek() != 'e' && peek() != 'E';
        if (accept('.')) needDigits();
        if (accept('e') || accept('E')) {
            if (!accept('+')) accept('-');
            needDigits();
        }
        return numberFrom(text_.substr(begin, at_ - begin), isWhole, begin);
    }

    Json numberFrom(std::string_view spelling, bool isWhole, std::size_t begin) const {
        const char* end = spelling.data() + spelling.size();
        std::int64_t whole = 0;
        if (isWhole && std::from_chars(spelling.data(), end, whole).ec == std::errc{} && spelling != "-0")
            return whole;
        double real = 0;
        if (std::from_chars(spelling.data(), end, real).ec == std::errc{}) return real;
        if (isTooSmall(spelling)) return spelling.starts_with('-') ? -0.0 : 0.0;
        refuse("The number at " + place(begin) + " is too large for a 64-bit float.");
    }

    std::string string() {
        std::string result;
        ++at_;
        for (;;) {
            const std::size_t begin = at_;
            while (at_ < text_.size() && isPlain(text_[at_])) ++at_;
            result.append(text_, begin, at_ - begin);
            if (at_ >= text_.size()) failHere("the closing quote of a text");
            const auto byte = static_cast<unsigned char>(text_[at_]);
            if (accept('"')) return result;
            if (byte == '\\') {
                escape(result);
            } else if (byte < 0x20) {
                failHere("a control character to be written as an escape such as \\n");
            } else {
                const std::size_t length = utf8::lengthAt(text_, at_);
                if (length == 0) refuse("The document is not valid UTF-8 at " + place(at_) + ".");
                result.append(text_, at_, length);
                at_ += length;
            }
        }
    }

    static bool isPlain(char c) {
        return c != '"' && c != '\\' && static_cast<unsigned char>(c) >= 0x20 &&
               static_cast<unsigned char>(c) < 0x80;
    }

    void escape(std::string& into) {
        static constexpr std::string_view letters = "\"\\/bfnrtu", meanings = "\"\\/\b\f\n\r\t";
        ++at_;
        const std::size_t which = peek() == '\0' ? std::string_view::npos : letters.find(peek());
        if (which == std::string_view::npos) failHere("one of \" \\ / b f n r t u after a backslash");
        ++at_;
        if (which < meanings.size())
            into += meanings[which];
        else
            utf8::append(into, escapedCodePoint());
    }

    char32_t escapedCodePoint() {
        constexpr char32_t replacement = 0xFFFD;
        const char32_t unit = hexUnit();
        if (isLowSurrogate(unit) || unit == 0) return replacement;
        if (!isHighSurrogate(unit)) return unit;
        const std::size_t afterFirst = at_;
        if (text_.substr(at_, 2) != "\\u") return replacement;
        at_ += 2;
        const char32_t second = hexUnit();
        if (isLowSurrogate(second)) return 0x10000 + ((unit - 0xD800) << 10) + (second - 0xDC00);
        at_ = afterFirst;   // the second escape stands for itself
        return replacement;
    }

    char32_t hexUnit() {
        std::uint32_t unit = 0;
        const std::string_view digits = text_.substr(at_, 4);
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), unit, 16);
        if (digits.size() < 4 || read.ptr != digits.data() + 4) failHere("four hexadecimal digits after \\u");
        at_ += 4;
        return unit;
    }

    void needDigits() {
        if (!isDigit(peek())) failHere("a digit");
        skipDigits();
    }
    void skipDigits() {
        while (isDigit(peek())) ++at_;
    }
    void skipSpace() {
        while (at_ < text_.size() &&
               (text_[at_] == ' ' || text_[at_] == '\n' || text_[at_] == '\r' || text_[at_] == '\t'))
            ++at_;
    }
    char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
    bool accept(char wanted) {
        if (peek() != wanted || at_ >= text_.size()) return false;
        ++at_;
        return true;
    }

    // Lines end with a line feed; columns count characters. Both from 1.
    std::string place(std::size_t offset) const {
        const std::string_view before = text_.substr(0, offset);
        const auto line = std::count(before.begin(), before.end(), '\n') + 1;
        const std::string_view row = before.substr(before.rfind('\n') + 1);   // npos + 1 is 0
        const auto column = std::count_if(row.begin(), row.end(), [](char c) {
            return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
        }) + 1;
        return "line " + std::to_string(line) + ", column " + std::to_string(column);
    }

    std::string found() const {
        if (at_ >= text_.size()) return "the document ends";
        const std::size_t length = utf8::lengthAt(text_, at_);
        const auto byte = static_cast<unsigned char>(text_[at_]);
        if (byte == '\n' || byte == '\r') return "the line ends";
        if (length == 0 || byte < 0x20) return "the byte " + std::to_string(byte) + " stands there";
        return "\"" + std::string(text_.substr(at_, length)) + "\" stands there";
    }

    [[noreturn]] void failHere(const std::string& expected) const {
        refuse("The document is not valid JSON at " + place(at_) + ": expected " + expected + ", but " +
               found() + ".");
    }

    std::string_view text_;
    const JsonLimits& limits_;
    std::size_t at_ = 0;
    std::size_t valueCount_ = 0;
};

}   // namespace

Json parseJson(std::string_view text, const JsonLimits& limits) {
    if (text.size() > limits.maxBytes)
        refuse("The document has " + std::to_string(text.size()) + " bytes, which is more than the " +
               std::to_string(limits.maxBytes) + " that are read; split it into smaller ones.");
    return Parser(text, limits).document();
}

}   // namespace tavix
