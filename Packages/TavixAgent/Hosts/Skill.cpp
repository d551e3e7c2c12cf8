#include "TavixAgent/Hosts/Skill.h"

namespace tavix::Skill {
namespace {

constexpr std::string_view begin = "<!-- tavix: begin -->", end = "<!-- tavix: end -->";

constexpr std::string_view body = R"(# Product videos with Tavix

A film is a JSON document (`film.tavixcomp`). Change it by patches, see it in words, look at pictures last.

What to call when (the tools of the server `tavix`; the command has verbs of the same names):

1. `new_document` from a template, or `read_document` by pointer and depth.
2. `presets` for names and `schema` for keys; never guess either.
3. `edit_document` with a patch and the revision that you read, one scene at a time.
4. `describe` a moment for what is where; `describe` from and to for what happens when.
5. `check`, and pass its repairs to `edit_document`. Errors first.
6. One `sheet` when describe and check have nothing more to say, then `render`.

Taste:

- One message a scene, at most seven words on screen.
- Two to four seconds a scene; longer only where something happens.
- Let something move within the first half second.
- One typeface, two weights; headlines at a tenth of the height.
- Contrast of 4.5 to 1 and more, with room at the edges.
- One accent a film: one spring that swings, or one bold transition.
- Cut on the beat; use `durationBeats` once the music is known.
- Show the product large, and let texts step aside for it.
- Enter quickly, rest, leave more quickly than you came.
- End on the name and one thing to do.
)";

// Where the section is, its markers included, with the line feed after it.
struct Place {
    std::size_t from, to;
};
Place placeIn(std::string_view text) {
    const std::size_t from = text.find(begin);
    const std::size_t close = from == std::string_view::npos ? from : text.find(end, from);
    if (close == std::string_view::npos) return {text.size(), text.size()};
    const std::size_t to = close + end.size();
    return {from, to < text.size() && text[to] == '\n' ? to + 1 : to};
}

}   // namespace

std::string file() {
    return "---\nname: tavix\ndescription: Make, change, judge and render product videos with Tavix. Use it "
           "whenever a video, teaser, demo film or .tavixcomp bundle is asked for.\n---\n\n" +
           std::string(body);
}

std::string ruleFile() {
    return "---\ndescription: Product videos with Tavix (.tavixcomp bundles, teasers, demo films)\n"
           "alwaysApply: false\n---\n\n" +
           std::string(body);
}

std::string withSection(std::string_view text) {
    const Place place = placeIn(text);
    std::string result(text.substr(0, place.from));
    const bool isNew = place.from == text.size();
    if (isNew && !result.empty()) result += result.ends_with('\n') ? "\n" : "\n\n";
    result.append(begin).append("\n").append(body).append(end).append("\n");
    return result.append(text.substr(place.to));
}

std::string withoutSection(std::string_view text) {
    const Place place = placeIn(text);
    std::string result(text.substr(0, place.from));
    if (place.from < text.size() && result.ends_with("\n\n")) result.pop_back();
    return result.append(text.substr(place.to));
}

}   // namespace tavix::Skill
