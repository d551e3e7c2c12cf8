// Tagged unions at run time: the alternatives of a `std::variant` and how an object tells which it is.
#pragma once

#include "TavixCore/Support/Type.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tavix {

class JsonObject;

struct Alternative {
    std::string_view tag, payloadKey;   // no payload key: flat
    std::size_t index = 0;              // in the variant
    TypeGetter type = nullptr;
    void* (*emplace)(void* choice) = nullptr;   // a fresh one
    void* (*held)(void* choice) = nullptr;      // when it is the one that is held
    void (*makeDefault)(void* choice) = nullptr;
    bool isDefaultWhenAbsent = false;
    std::string_view presentKey = {};
};

struct ChoiceType : Type {
    enum class Tag {
        required,        // a missing tag is a missing key
        emptyIfAbsent,   // a missing tag counts as an unknown empty one
        none,            // no tag at all: the first alternative whose `whenPresent` key is there, or the last
    };

    ChoiceType(std::string_view nameOfType, std::string_view nounOfTag, std::span<const Alternative> all,
        Tag kindOfTag, std::optional<std::string_view> fallback, std::string_view keyOfTag,
        std::size_t (*indexOf)(const void*))
        : Type{Kind::choice}, name(nameOfType), noun(nounOfTag), rows(all), tag(kindOfTag),
          fallbackTag(fallback), tagKey(keyOfTag), index(indexOf) {}
    ChoiceType(const ChoiceType&) = delete;   // its rows are in the table that it is in
    ChoiceType& operator=(const ChoiceType&) = delete;

    std::string_view name, noun;   // of the definition in the schema; of the tag in messages
    std::span<const Alternative> rows;
    Tag tag;
    // The tag that a missing or unknown one reads as. An alternative with the empty tag writes none: its
    // record has the key itself, and so keeps the word it was read with.
    std::optional<std::string_view> fallbackTag;
    std::string_view tagKey;
    std::size_t (*index)(const void* choice);

    const Alternative& heldBy(const void* choice) const;
    const Alternative* find(std::string_view tagWord) const;
    // Of a choice without a tag, by the keys that are there.
    const Alternative& byKeys(const JsonObject& object) const;
    // The tags, in the order of the table, without the one of unknown tags.
    std::vector<std::string_view> tags() const;
};

}   // namespace tavix
