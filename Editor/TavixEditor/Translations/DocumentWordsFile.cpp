// Prints what the inspector says of documents as a source file, in which the tool that collects the words of
// the program finds it.
#include "Editor/EditorDomain/Inspector/DocumentWords.h"

#include <cstdio>
#include <string>

namespace {

void print(const char* context, const std::set<std::string>& words) {
    for (const std::string& word : words) {
        std::string quoted;
        for (const char c : word) quoted += c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
        std::printf("    QT_TRANSLATE_NOOP(\"%s\", \"%s\"),\n", context, quoted.c_str());
    }
}

}   // namespace

int main() {
    const tavix::DocumentWords words = tavix::documentWords();
    std::puts("const char* const documentWords[] = {");
    print("Document", words.labels);
    print("DocumentHelp", words.helps);
    std::puts("};");
}
