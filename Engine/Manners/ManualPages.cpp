#include "Engine/Manners/ManualPages.h"

#include "TavixCore/Support/TavixVersion.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace tavix::engine {

namespace {

// As text of a page: backslashes and leading dots are commands there, and a hyphen is no minus.
std::string roff(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if ((c == '.' || c == '\'') && (i == 0 || text[i - 1] == '\n')) result += "\\&";
        if (c == '\\')
            result += "\\e";
        else if (c == '-')
            result += "\\-";
        else if (c == '\'')
            result += "\\(aq";
        else
            result += c;
    }
    return result;
}

std::string bold(std::string_view text) { return "\\fB" + roff(text) + "\\fR"; }
std::string italic(std::string_view text) { return "\\fI" + roff(text) + "\\fR"; }

std::string head(const std::string& name, std::string_view summary) {
    std::string title = name;
    std::ranges::transform(title, title.begin(), [](unsigned char c) { return char(std::toupper(c)); });
    return ".TH " + roff(title) + " 1 \"\" \"Tavix " + std::string(TavixVersion::current) +
           "\" \"Tavix\"\n.SH NAME\n" + roff(name) + " \\- " + roff(summary.substr(0, summary.rfind('.'))) +
           "\n";
}

std::string entry(const std::string& term, std::string_view meaning) {
    return ".TP\n" + term + "\n" + roff(meaning) + "\n";
}

std::string termOf(const ArgumentEntry& argument) {
    if (argument.isInPlace) return italic(argument.names.front());
    std::string term;
    for (const std::string& name : argument.names) term += (term.empty() ? "" : ", ") + bold(name);
    if (!argument.words.empty()) {
        std::string words;
        for (const std::string& word : argument.words) words += (words.empty() ? "" : "|\\:") + bold(word);
        // A long list stands in what the option means, or in another verb.
        if (words.size() < 200) return term + " " + words;
    }
    return argument.takesValue() ? term + " " + italic(argument.placeholder) : term;
}

std::string section(const char* title, const std::vector<const ArgumentEntry*>& arguments) {
    if (arguments.empty()) return "";
    std::string text = ".SH " + std::string(title) + "\n";
    for (const ArgumentEntry* argument : arguments) text += entry(termOf(*argument), argument->meaning);
    return text;
}

constexpr const char* exitStatus = ".SH \"EXIT STATUS\"\n"
                                   ".TP\n0\nThe work is done.\n"
                                   ".TP\n1\nThe document has errors.\n"
                                   ".TP\n2\nThe command was used wrongly.\n"
                                   ".TP\n3\nReading or writing failed.\n"
                                   ".TP\n128 and more\nA signal ended it; its number is added.\n";

constexpr const char* environment =
    ".SH ENVIRONMENT\n"
    ".TP\nNO_COLOR\nWhen it is set and not empty, messages have no colours and no bar is drawn.\n"
    ".TP\nTAVIX_RESOURCES\nThe folder of the pictures, models and sounds that come with the command, in place of those "
    "beside it.\n"
    ".TP\nTAVIX_BROWSER\nThe browser that\n.B tavix run\nrecords with.\n"
    ".TP\nTAVIX_ROOT\nA folder outside of which documents may name no files.\n";

}   // namespace

std::string pageName(const VerbTable& table) {
    std::string name = "tavix-" + table.name;
    std::ranges::replace(name, ' ', '-');
    return name;
}

std::string manualPage(const VerbTable& table) {
    std::string text = head(pageName(table), table.summary) + ".SH SYNOPSIS\n" + bold("tavix " + table.name) +
                       " [" + italic("OPTIONS") + "]";
    for (const ArgumentEntry* argument : table.inPlace()) {
        const std::string name = italic(argument->names.front());
        text += argument->isRequired ? " " + name : " [" + name + "]";
    }
    text += "\n.SH DESCRIPTION\n" + roff(table.summary) + "\n";
    return text + section("ARGUMENTS", table.inPlace()) + section("OPTIONS", table.named()) +
           ".SH EXAMPLE\n.EX\n" + roff(table.example) + "\n.EE\n" + exitStatus +
           ".SH \"SEE ALSO\"\n.BR tavix (1)\n";
}

std::string manualPage(const std::vector<VerbTable>& tables) {
    std::string text =
        head("tavix", "Make product videos from documents.") + ".SH SYNOPSIS\n" + bold("tavix") + " " +
        italic("VERB") + " [" + italic("OPTIONS") +
        "]\n.SH DESCRIPTION\nTavix turns a JSON document into a product video: scenes of texts, "
        "phones, pictures and clips, with motion, music and sounds. It needs no display and no "
        "network. Results go to standard output and messages to standard error.\n.SH VERBS\n";
    std::string also;
    for (const VerbTable& table : tables) {
        text += entry(bold(table.name), table.summary);
        also += (also.empty() ? ".BR " : " ,\n.BR ") + roff(pageName(table)) + " (1)";
    }
    text += ".SH OPTIONS\n" + entry(bold("--version"), "Print the version.") +
            entry(bold("--help"), "Tell the verbs; after a verb, its options.");
    return text + exitStatus + environment +
           ".SH EXAMPLE\n.EX\ntavix new hello.tavixcomp\ntavix render hello.tavixcomp\n.EE\n" +
           ".SH \"SEE ALSO\"\n" + also + "\n";
}

}   // namespace tavix::engine
