// A JSON Schema at work: makes random documents that follow it, and judges whether a document does. It knows
// the part of draft 2020-12 that our schemas use.
#pragma once

#include "TavixCore/Support/Json.h"
#include "TavixCore/Values/SeededRandom.h"

#include <string>

namespace tavix {

class SchemaDocument {
public:
    explicit SchemaDocument(Json schema) : schema_(std::move(schema)) {}

    // How far a random document strays: a tame one follows the schema; a wild one has numbers out of range,
    // unknown words, nulls and unknown keys besides.
    enum class Manner { tame, wild };
    Json random(SeededRandom& dice, Manner manner) const;

    // The first thing in which the document departs from the schema, or nothing.
    std::string departure(const Json& document) const { return departure(document, schema_, "$"); }

    // Checks every `default` against the schema of its key.
    std::string departureOfDefaults() const;

private:
    struct Maker;
    const Json& resolved(const Json& schema) const;
    std::string departure(const Json& value, const Json& schema, const std::string& at) const;

    Json schema_;
};

}   // namespace tavix
