#include "TavixCore/Support/Choice.h"

#include "TavixCore/Support/Json.h"

#include <stdexcept>

namespace tavix {

const Alternative& ChoiceType::heldBy(const void* choice) const {
    const std::size_t held = index(choice);
    for (const Alternative& row : rows)
        if (row.index == held) return row;
    throw std::logic_error("An alternative has no row in its table.");
}

const Alternative* ChoiceType::find(std::string_view tagWord) const {
    for (const Alternative& row : rows)
        if (row.tag == tagWord) return &row;
    return nullptr;
}

const Alternative& ChoiceType::byKeys(const JsonObject& object) const {
    for (const Alternative& row : rows)
        if (!row.presentKey.empty() && object.find(row.presentKey)) return row;
    return rows.back();
}

std::vector<std::string_view> ChoiceType::tags() const {
    std::vector<std::string_view> all;
    for (const Alternative& row : rows)
        if (!row.tag.empty()) all.push_back(row.tag);
    return all;
}

}   // namespace tavix
