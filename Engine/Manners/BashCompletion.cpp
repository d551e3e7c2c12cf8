#include "Engine/Manners/Completion.h"

namespace tavix::engine {

namespace {

// The shell parts "--format=gif" into three words; what is before the cursor is put together from them.
constexpr const char* before = R"sh(# Completion of tavix for bash, made by tavix completion bash.
_tavix() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}
    local verb=${COMP_WORDS[1]-} first=2 options= takes= place=0 words= files= word i
    COMPREPLY=()
    if [[ $cur == = ]]; then cur=
    elif [[ $prev == = ]]; then prev=${COMP_WORDS[COMP_CWORD-2]}
    fi
)sh";

constexpr const char* after = R"sh(
    for ((i = first; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        if [[ $takes == *" $word "* ]]; then
            if [[ ${COMP_WORDS[i+1]-} == = ]]; then ((i++)); fi
            ((i++))
        elif [[ $word != -* ]]; then ((place++))
        fi
    done
    if [[ $takes == *" $prev "* ]]; then place=$prev
    elif [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
        return
    fi
)sh";

constexpr const char* last = R"sh(
    COMPREPLY=($(compgen -W "$words" -- "$cur"))
    # The shell itself completes names of files, with blanks and all.
    if [[ $files ]]; then compopt -o default 2>/dev/null; fi
}
complete -F _tavix tavix
)sh";

std::string choosing(const std::string& words) {
    return "        COMPREPLY=($(compgen -W " + inShellQuotes(words) + " -- \"$cur\"))\n        return\n";
}

std::string verbWords(const std::vector<VerbTable>& tables) {
    std::vector<std::string> top{"--help", "--version"};
    std::string families, text;
    for (const FirstWord& first : firstWords(tables)) {
        top.push_back(first.word);
        if (!first.isFamily) continue;
        families += (families.empty() ? "" : "|") + first.word;
        std::vector<std::string> members{"--help"};
        for (const VerbTable& table : tables)
            if (table.name.starts_with(first.word + " "))
                members.push_back(table.name.substr(first.word.size() + 1));
        text += "    if ((COMP_CWORD == 2)) && [[ $verb == " + first.word + " ]]; then\n" +
                choosing(spaced(members)) + "    fi\n";
    }
    return "    if ((COMP_CWORD == 1)); then\n" + choosing(spaced(top)) + "    fi\n" + text +
           "    case $verb in " + families + ") verb=\"$verb ${COMP_WORDS[2]-}\" first=3 ;; esac\n";
}

std::string optionsOf(const VerbTable& table) {
    std::vector<std::string> options, takes;
    for (const ArgumentEntry* entry : table.named()) {
        for (const std::string& name : entry->names) {
            if (name.starts_with("--")) options.push_back(name);
            if (entry->takesValue()) takes.push_back(name);
        }
    }
    return "    " + inShellQuotes(table.name) + ") options=" + inShellQuotes(spaced(options)) +
           " takes=" + inShellQuotes(" " + spaced(takes) + " ") + " ;;\n";
}

std::string valuesOf(const VerbTable& table) {
    std::string text;
    const auto add = [&](const std::string& key, const ArgumentEntry& entry) {
        if (!entry.words.empty())
            text += "    " + inShellQuotes(table.name + " " + key) +
                    ") words=" + inShellQuotes(spaced(entry.words)) + " ;;\n";
        else if (entry.isFile())
            text += "    " + inShellQuotes(table.name + " " + key) + ") files=1 ;;\n";
    };
    int place = 0;
    for (const ArgumentEntry* entry : table.inPlace()) add(std::to_string(place++), *entry);
    for (const ArgumentEntry* entry : table.named())
        if (entry->takesValue())
            for (const std::string& name : entry->names) add(name, *entry);
    return text;
}

}   // namespace

std::string bashCompletion(const std::vector<VerbTable>& tables) {
    std::string text = before + verbWords(tables) + "    case $verb in\n", values, names;
    for (const VerbTable& table : tables) {
        text += optionsOf(table);
        values += valuesOf(table);
        if (table.name.find(' ') == std::string::npos) names += (names.empty() ? "" : " ") + table.name;
    }
    text += "    help) takes=' ' ;;\n    *) return ;;\n    esac\n";
    return text + after + "    case \"$verb $place\" in\n" + values +
           "    'help 0') words=" + inShellQuotes(names) + " ;;\n    esac\n" + last;
}

}   // namespace tavix::engine
