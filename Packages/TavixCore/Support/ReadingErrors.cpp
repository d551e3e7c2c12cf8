#include "TavixCore/Support/ReadingErrors.h"

#include "TavixCore/Support/JsonWriter.h"

namespace tavix {

void failWithType(const KeyPath& at, std::string_view expected, const Json& found) {
    const auto kind = found.isNull() ? DecodingError::Kind::valueNotFound : DecodingError::Kind::typeMismatch;
    throw DecodingError(kind, at.text(),
        at.subject() + " must be " + std::string(expected) + ", but is " + std::string(found.kindName()) +
            ".");
}

void failWithMissing(const KeyPath& at, const Json* found) {
    if (found)
        throw DecodingError(DecodingError::Kind::valueNotFound, at.text(),
            at.subject() + " is null, but it is required; give it a value.");
    throw DecodingError(DecodingError::Kind::keyNotFound, at.text(),
        at.subject() + " is missing, but it is required; add the key.");
}

void failWithData(const KeyPath& at, const std::string& message) {
    throw DecodingError(DecodingError::Kind::dataCorrupted, at.text(), message);
}

void failWithWord(const KeyPath& at, std::string_view noun, std::string_view word,
    const std::vector<std::string_view>& known) {
    std::string message = "Unknown " + std::string(noun) + " \"" + std::string(word) + "\" — must be one of ";
    for (std::size_t i = 0; i < known.size(); ++i) message.append(i > 0 ? ", " : "").append(known[i]);
    failWithData(at, message + ".");
}

const JsonObject& objectAt(const Json& json, const KeyPath& at) {
    const JsonObject* object = json.object();
    if (!object) failWithType(at, "an object", json);
    return *object;
}

const std::string& textAt(const Json& json, const KeyPath& at) {
    const std::string* text = json.text();
    if (!text) failWithType(at, "text", json);
    return *text;
}

double numberAt(const Json& json, const KeyPath& at) {
    const std::optional<double> number = json.doubleValue();
    if (!number) failWithType(at, "a number", json);
    return *number;
}

std::int64_t integerAt(const Json& json, const KeyPath& at) {
    const std::optional<std::int64_t> whole = json.integerValue();
    if (whole) return *whole;
    if (!json.isNumber()) failWithType(at, "a whole number", json);
    throw DecodingError(DecodingError::Kind::typeMismatch, at.text(),
        at.subject() + " must be a whole number of at most 64 bits, but is " + writeJson(json) + ".");
}

}   // namespace tavix
