#include "TavixCore/Support/JsonWriter.h"

#include "TavixBase/Failure.h"
#include "TavixBase/Utf8.h"
#include "TavixCore/Support/KeyPath.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace tavix {

namespace {

// JSON has no way to write NaN or an infinity.
void refuseWhatIsNotFinite(const Json& json, const KeyPath& at) {
    if (const JsonArray* elements = json.array()) {
        for (std::size_t i = 0; i < elements->size(); ++i)
            refuseWhatIsNotFinite((*elements)[i], KeyPath(at, i));
    } else if (const JsonObject* members = json.object()) {
        for (const JsonMember& member : *members)
            refuseWhatIsNotFinite(member.value, KeyPath(at, member.key));
    } else if (const auto number = json.doubleValue(); number && !std::isfinite(*number)) {
        throw Failure(at.subject() + " is not a finite number and cannot be written; give it a finite one.");
    }
}

class Writer {
public:
    void value(const Json& json) {
        if (const bool* flag = json.boolean()) {
            out_ += *flag ? "true" : "false";
        } else if (json.isNumber()) {
            number(json);
        } else if (const std::string* held = json.text()) {
            text(*held);
        } else if (const JsonArray* elements = json.array()) {
            list('[', *elements, ']', [this](const Json& element) { value(element); });
        } else if (const JsonObject* members = json.object()) {
            list('{', *members, '}', [this](const JsonMember& member) {
                text(member.key);
                out_ += " : ";
                value(member.value);
            });
        } else {
            out_ += "null";
        }
    }

    std::string take() { return std::move(out_); }

private:
    template <class Items, class One> void list(char open, const Items& items, char close, One one) {
        out_ += open;
        if (!items.empty()) {
            ++depth_;
            bool isFirst = true;
            for (const auto& item : items) {
                if (!isFirst) out_ += ',';
                isFirst = false;
                newLine();
                one(item);
            }
            --depth_;
            newLine();
        }
        out_ += close;
    }

    void newLine() {
        out_ += '\n';
        out_.append(2 * depth_, ' ');
    }

    void number(const Json& json) {
        std::array<char, 32> digits{};
        char* const begin = digits.data();
        char* const end = begin + digits.size();
        const double real = *json.doubleValue();
        if (const auto whole = json.integerValue(); whole && Json(*whole) == json) {
            out_.append(begin, std::to_chars(begin, end, *whole).ptr);
        } else {
            // Past 2^53 a plain form would show digits that the float does not have.
            const bool isPlain = real == 0 || (std::abs(real) >= 1e-4 && std::abs(real) < 0x1p53);
            const auto form = isPlain ? std::chars_format::fixed : std::chars_format::scientific;
            out_.append(begin, std::to_chars(begin, end, real, form).ptr);
        }
    }

    void text(std::string_view characters) {
        out_ += '"';
        for (std::size_t at = 0; at < characters.size();) {
            const std::size_t length = utf8::lengthAt(characters, at);
            const bool isControl =
                length == 2 && characters[at] == '\xC2' && byteOf(characters[at + 1]) < 0xA0;
            if (isControl)
                escaped(byteOf(characters[at + 1]));   // U+0080 to U+009F, which terminals obey
            else if (length > 1)
                out_.append(characters, at, length);
            else if (length == 0)
                out_ += utf8::replacement;
            else
                character(characters[at]);
            at += length == 0 ? 1 : length;
        }
        out_ += '"';
    }

    void character(char c) {
        static constexpr std::string_view special = "\"\\\b\f\n\r\t", letters = "\"\\bfnrt";
        const unsigned char byte = byteOf(c);
        if (const std::size_t which = special.find(c); which != std::string_view::npos) {
            out_ += '\\';
            out_ += letters[which];
        } else if (byte < 0x20 || byte == 0x7F) {
            escaped(byte);
        } else {
            out_ += c;
        }
    }

    static unsigned char byteOf(char c) { return static_cast<unsigned char>(c); }

    void escaped(unsigned char control) {
        static constexpr std::string_view hexDigits = "0123456789abcdef";
        out_ += "\\u00";
        out_ += hexDigits[control >> 4];
        out_ += hexDigits[control & 15];
    }

    std::string out_;
    std::size_t depth_ = 0;
};

}   // namespace

std::string writeJson(const Json& json) {
    refuseWhatIsNotFinite(json, KeyPath());
    Writer writer;
    writer.value(json);
    return writer.take();
}

}   // namespace tavix
