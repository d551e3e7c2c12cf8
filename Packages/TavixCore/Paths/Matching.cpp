#include "TavixCore/Paths/Matching.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <utility>

namespace tavix {

namespace {

constexpr double alike = 0.5;                     // from here on, two objects may be one that was changed
constexpr std::size_t mostComparisons = 40'000;   // of lists longer than that only equal elements are found

const std::string* idOf(const Json& element) {
    const Json* const id = element.find("id");
    return id ? id->text() : nullptr;
}

class Matcher {
public:
    Matcher(const JsonArray& before, const JsonArray& after)
        : before_(before), after_(after), from_(after.size()), isTaken_(before.size()) {}

    std::vector<std::optional<std::size_t>> run() && {
        matchIds();
        matchEnds();
        if (before_.size() * after_.size() <= mostComparisons) {
            matchEqual();
            matchAlike();
        }
        matchNeighbours();
        return std::move(from_);
    }

private:
    bool isOpen(std::size_t j) const { return !from_[j]; }
    void match(std::size_t i, std::size_t j) {
        from_[j] = i;
        isTaken_[i] = true;
    }

    // Elements that both have an id are the same one only if it is the same id.
    bool mayBeSame(std::size_t i, std::size_t j) const {
        const std::string *a = idOf(before_[i]), *b = idOf(after_[j]);
        return !a || !b || *a == *b;
    }

    void matchIds() {
        std::map<std::string_view, std::vector<std::size_t>> places;
        for (std::size_t i = before_.size(); i > 0; --i)
            if (const std::string* id = idOf(before_[i - 1])) places[*id].push_back(i - 1);
        for (std::size_t j = 0; j < after_.size(); ++j) {
            const std::string* const id = idOf(after_[j]);
            const auto known = id ? places.find(*id) : places.end();
            if (known == places.end() || known->second.empty()) continue;
            match(known->second.back(), j);
            known->second.pop_back();
        }
    }

    void matchEnds() {
        const std::size_t shorter = std::min(before_.size(), after_.size());
        const auto tried = [&](std::size_t i, std::size_t j) {
            if (isTaken_[i] || !isOpen(j)) return from_[j] == i;
            if (before_[i] != after_[j]) return false;
            match(i, j);
            return true;
        };
        for (std::size_t k = 0; k < shorter && tried(k, k); ++k) {}
        for (std::size_t k = 1; k <= shorter && tried(before_.size() - k, after_.size() - k); ++k) {}
    }

    void matchEqual() {
        for (std::size_t j = 0; j < after_.size(); ++j)
            for (std::size_t i = 0; i < before_.size() && isOpen(j); ++i)
                if (!isTaken_[i] && before_[i] == after_[j]) match(i, j);
    }

    void matchAlike() {
        std::vector<std::tuple<double, std::size_t, std::size_t>> pairs;   // the likest first, then in order
        for (std::size_t j = 0; j < after_.size(); ++j)
            for (std::size_t i = 0; i < before_.size() && isOpen(j); ++i) {
                if (isTaken_[i] || !before_[i].object() || !after_[j].object() || !mayBeSame(i, j)) continue;
                const double share = likeness(before_[i], after_[j]);
                if (share >= alike) pairs.emplace_back(-share, j, i);
            }
        std::ranges::sort(pairs);
        for (const auto& [share, j, i] : pairs)
            if (isOpen(j) && !isTaken_[i]) match(i, j);
    }

    // A new element directly after a known one takes the place of what stood there before.
    void matchNeighbours() {
        for (std::size_t j = 0; j < after_.size(); ++j) {
            if (!isOpen(j) || (j > 0 && isOpen(j - 1))) continue;
            const std::size_t i = j == 0 ? 0 : *from_[j - 1] + 1;
            if (i < before_.size() && !isTaken_[i] && mayBeSame(i, j)) match(i, j);
        }
    }

    const JsonArray &before_, &after_;
    std::vector<std::optional<std::size_t>> from_;
    std::vector<bool> isTaken_;
};

double likenessOfLists(const JsonArray& a, const JsonArray& b) {
    const std::size_t longer = std::max(a.size(), b.size());
    if (longer == 0) return 1;
    double shared = 0;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) shared += likeness(a[i], b[i]);
    return shared / static_cast<double>(longer);
}

double likenessOfObjects(const JsonObject& a, const JsonObject& b) {
    double shared = 0;
    std::size_t common = 0;
    for (const JsonMember& member : a)
        if (const Json* other = b.find(member.key)) {
            shared += likeness(member.value, *other);
            ++common;
        }
    const std::size_t all = a.size() + b.size() - common;
    return all == 0 ? 1 : shared / static_cast<double>(all);
}

}   // namespace

double likeness(const Json& a, const Json& b) {
    if (a.object() && b.object()) return likenessOfObjects(*a.object(), *b.object());
    if (a.array() && b.array()) return likenessOfLists(*a.array(), *b.array());
    return a == b ? 1 : 0;
}

std::vector<std::size_t> longestRising(const std::vector<std::size_t>& sequence) {
    std::vector<std::size_t> ends;   // of rising parts by their length, each with the least last number
    std::vector<std::size_t> before(sequence.size());
    for (std::size_t i = 0; i < sequence.size(); ++i) {
        const auto length = std::lower_bound(ends.begin(), ends.end(), sequence[i],
            [&](std::size_t end, std::size_t number) { return sequence[end] < number; });
        before[i] = length == ends.begin() ? i : *(length - 1);
        if (length == ends.end())
            ends.push_back(i);
        else
            *length = i;
    }
    std::vector<std::size_t> part(ends.size());
    std::size_t at = ends.empty() ? 0 : ends.back();
    for (std::size_t k = part.size(); k > 0; --k, at = before[at]) part[k - 1] = at;
    return part;
}

std::vector<std::optional<std::size_t>> matched(const JsonArray& before, const JsonArray& after) {
    return Matcher(before, after).run();
}

}   // namespace tavix
