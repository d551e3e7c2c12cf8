#include "Engine/Manners/Completion.h"

#include <string_view>

namespace tavix::engine {

namespace {

// Within the brackets of a specification, where a bracket or a colon would end it.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':' || c == '\\') result += '\\';
        result += c;
    }
    return result;
}

std::string valueOf(const ArgumentEntry& entry) {
    const std::string name = entry.isInPlace ? entry.names.front() : entry.placeholder;
    const std::string message = ":" + escaped(entry.words.empty() ? name : "word") + ":";
    if (!entry.words.empty()) return message + "(" + spaced(entry.words) + ")";
    return message + (entry.isFile() ? "_files" : " ");
}

std::string specification(const ArgumentEntry& entry, int& place) {
    if (entry.isInPlace) return inShellQuotes(std::to_string(++place) + valueOf(entry));
    const std::string tail =
        "[" + escaped(entry.meaning) + "]" + (entry.takesValue() ? valueOf(entry) : std::string());
    std::string text;
    for (const std::string& name : entry.names) {
        const std::string others =
            entry.names.size() > 1 ? "(" + spaced(entry.names) + ")" : "*";   // or again and again
        text +=
            (text.empty() ? "" : " ") +
            inShellQuotes(others + name + (entry.takesValue() && name.starts_with("--") ? "=" : "") + tail);
    }
    return text;
}

std::string described(const std::string& word, const std::string& meaning) {
    return "        " + inShellQuotes(escaped(word) + ":" + meaning) + "\n";
}

}   // namespace

std::string zshCompletion(const std::vector<VerbTable>& tables) {
    std::string text = "#compdef tavix\n# Completion of tavix for zsh, made by tavix completion zsh.\n"
                       "_tavix() {\n    local -a verbs\n    local verb=$words[2]\n"
                       "    if ((CURRENT == 2)); then\n        verbs=(\n";
    std::string families;
    for (const FirstWord& first : firstWords(tables)) {
        text += described(first.word, first.meaning);
        if (!first.isFamily) continue;
        families += "    if [[ $verb == " + first.word +
                    " ]]; then\n        if ((CURRENT == 3)); then\n"
                    "        verbs=(\n";
        for (const VerbTable& table : tables)
            if (table.name.starts_with(first.word + " "))
                families += described(table.name.substr(first.word.size() + 1), table.summary);
        families += "        )\n        _describe verb verbs\n        return\n        fi\n"
                    "        verb=\"$verb $words[3]\"\n        shift words\n        ((CURRENT--))\n    fi\n";
    }
    text += "        )\n        _describe verb verbs\n        return\n    fi\n" + families +
            "    shift words\n    ((CURRENT--))\n    case $verb in\n";
    for (const VerbTable& table : tables) {
        text += "    " + inShellQuotes(table.name) + ")\n        _arguments";
        int place = 0;
        for (const ArgumentEntry& entry : table.arguments)
            text += " \\\n            " + specification(entry, place);
        text += "\n        ;;\n";
    }
    return text + "    esac\n}\n_tavix \"$@\"\n";
}

}   // namespace tavix::engine
