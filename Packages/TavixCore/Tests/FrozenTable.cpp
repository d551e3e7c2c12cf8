#include "TavixCore/Tests/FrozenTable.h"

#include "TavixCore/Support/JsonParser.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixCore/Tests/FrozenDocument.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>

namespace tavix::frozen {
namespace {

constexpr double tolerance = 1e-9;

class Comparison {
public:
    std::vector<std::string> lines;

    void compare(const std::string& where, const Json& expected, const Json& found) {
        if (expected.object() && found.object())
            compareObjects(where, *expected.object(), *found.object());
        else if (areRows(expected) && areRows(found))
            compareRows(where, *expected.array(), *found.array());
        else if (expected.array() && found.array())
            compareLists(where, *expected.array(), *found.array());
        else if (!areAlike(expected, found))
            tell(where, writeJson(expected), writeJson(found));
    }

private:
    void tell(const std::string& where, const std::string& expected, const std::string& found) {
        lines.push_back(where + ": expected " + expected + ", found " + found);
    }

    static bool areAlike(const Json& expected, const Json& found) {
        if (!expected.isNumber() || !found.isNumber()) return expected == found;
        const double a = *expected.doubleValue(), b = *found.doubleValue();
        return std::abs(a - b) <= tolerance * std::max(1.0, std::abs(a));
    }

    static bool areRows(const Json& json) {
        const JsonArray* elements = json.array();
        return elements && !elements->empty() &&
               std::ranges::all_of(*elements, [](const Json& row) { return row.find("name") != nullptr; });
    }

    void compareObjects(const std::string& where, const JsonObject& expected, const JsonObject& found) {
        for (const auto& [key, value] : expected) {
            const Json* there = found.find(key);
            if (there)
                compare(where + " " + key, value, *there);
            else
                tell(where + " " + key, writeJson(value), "nothing");
        }
        for (const auto& [key, value] : found)
            if (!expected.find(key)) tell(where + " " + key, "nothing", writeJson(value));
    }

    void compareLists(const std::string& where, const JsonArray& expected, const JsonArray& found) {
        const std::size_t most = std::max(expected.size(), found.size());
        for (std::size_t i = 0; i < most; ++i) {
            const std::string here = where + " [" + std::to_string(i) + "]";
            if (i >= expected.size())
                tell(here, "nothing", writeJson(found[i]));
            else if (i >= found.size())
                tell(here, writeJson(expected[i]), "nothing");
            else
                compare(here, expected[i], found[i]);
        }
    }

    void compareRows(const std::string& where, const JsonArray& expected, const JsonArray& found) {
        std::vector<std::string> expectedOrder, foundOrder;
        for (const Json& row : expected) {
            const std::string& name = text(row, "name");
            const Json* there = rowOf(found, name);
            if (!there) tell(where + " " + name, "this row", "none");
            if (!there) continue;
            compare(where + " " + name, row, *there);
            expectedOrder.push_back(name);
        }
        for (const Json& row : found) {
            const std::string& name = text(row, "name");
            if (rowOf(expected, name))
                foundOrder.push_back(name);
            else
                tell(where + " " + name, "no such row", "one");
        }
        for (std::size_t i = 0; i < std::min(expectedOrder.size(), foundOrder.size()); ++i)
            if (expectedOrder[i] != foundOrder[i])
                return tell(where + " row " + std::to_string(i), expectedOrder[i], foundOrder[i]);
        if (expectedOrder.size() != foundOrder.size()) tell(where, "each row once", "one more than once");
    }

    static const Json* rowOf(const JsonArray& rows, const std::string& name) {
        const auto row =
            std::ranges::find_if(rows, [&](const Json& one) { return text(one, "name") == name; });
        return row == rows.end() ? nullptr : &*row;
    }
};

}   // namespace

Json table(std::string_view name) { return parseJson(document("Tables/" + std::string(name) + ".json")); }

const Json& member(const Json& object, std::string_view key) {
    const Json* value = object.find(key);
    if (!value) throw std::out_of_range("There is no \"" + std::string(key) + "\".");
    return *value;
}

double number(const Json& object, std::string_view key) { return member(object, key).doubleValue().value(); }

const std::string& text(const Json& object, std::string_view key) {
    const std::string* value = member(object, key).text();
    if (!value) throw std::out_of_range("\"" + std::string(key) + "\" is no text.");
    return *value;
}

const JsonArray& list(const Json& object, std::string_view key) {
    const JsonArray* value = member(object, key).array();
    if (!value) throw std::out_of_range("\"" + std::string(key) + "\" is no list.");
    return *value;
}

std::vector<std::string> departures(const Json& expected, const Json& found) {
    Comparison comparison;
    comparison.compare("", expected, found);
    return comparison.lines;
}

Json withUsual(const Json& row, const Json& usual) {
    Json whole = usual;
    whole.object()->merge(*row.object());
    return whole;
}

}   // namespace tavix::frozen
