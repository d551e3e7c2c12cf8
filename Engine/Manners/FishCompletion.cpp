#include "Engine/Manners/Completion.h"

namespace tavix::engine {

namespace {

constexpr const char* before = R"sh(# Completion of tavix for fish, made by tavix completion fish.
function __tavix_words
    string match -v -- '-*' (commandline -opc)[2..]
end
function __tavix_begins
    test (count (commandline -opc)) -eq 1
end
function __tavix_in_family
    set -l words (commandline -opc)
    test (count $words) -eq 2; and test "$words[2]" = "$argv[1]"
end
function __tavix_at
    set -l words (__tavix_words)
    for i in (seq (count $argv))
        test "$words[$i]" = "$argv[$i]"; or return 1
    end
end
complete -c tavix -f
)sh";

// In quotes of this shell, which has escapes within them.
std::string quotedFish(std::string_view text) {
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'' || c == '\\') result += '\\';
        result += c;
    }
    return result + "'";
}

std::string complete(const std::string& condition, const std::string& what) {
    return "complete -c tavix -n " + quotedFish(condition) + what + "\n";
}

std::string valueOf(const ArgumentEntry& entry) {
    if (!entry.words.empty()) return " -x -a " + quotedFish(spaced(entry.words));
    return entry.isFile() ? " -r -F" : " -x";
}

std::string namedOption(const ArgumentEntry& entry) {
    std::string text;
    for (const std::string& name : entry.names)
        text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    if (entry.takesValue()) text += valueOf(entry);
    return text + " -d " + quotedFish(entry.meaning);
}

}   // namespace

std::string fishCompletion(const std::vector<VerbTable>& tables) {
    std::string text = before;
    for (const FirstWord& first : firstWords(tables))
        text += complete("__tavix_begins", " -a " + first.word + " -d " + quotedFish(first.meaning));
    for (const VerbTable& table : tables) {
        const std::size_t blank = table.name.find(' ');
        if (blank != std::string::npos)
            text += complete("__tavix_in_family " + table.name.substr(0, blank),
                " -a " + table.name.substr(blank + 1) + " -d " + quotedFish(table.summary));
        const std::string here = "__tavix_at " + table.name;
        for (const ArgumentEntry* entry : table.inPlace())
            text += complete(
                here, entry->words.empty() ? std::string(" -F") : " -a " + quotedFish(spaced(entry->words)));
        for (const ArgumentEntry* entry : table.named()) text += complete(here, namedOption(*entry));
    }
    return text;
}

}   // namespace tavix::engine
