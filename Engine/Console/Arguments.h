// The arguments of one verb: what they are called, where their values go and what they mean. Every mistake is
// a `UsageError` with a sentence.
#pragma once

#include "Engine/Console/ArgumentEntry.h"
#include "Engine/Console/Words.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavix::engine {

class Terminal;

class Arguments {
public:
    Arguments(std::string_view verb, std::string_view summary, std::string_view example);
    ~Arguments();
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    // An argument without a name, in the order of these calls; `missing` is what is said when it is needed
    // and not there. At most one is needed.
    void positional(
        std::string_view name, std::string& into, std::string_view meaning, std::string missing = {});
    // `names` as in "-o,--output"; `placeholder` stands for the value in the help.
    void text(std::string_view names, std::optional<std::string>& into, std::string_view placeholder,
        std::string_view meaning);
    // One that may be given several times.
    void texts(std::string_view names, std::vector<std::string>& into, std::string_view placeholder,
        std::string_view meaning);
    void number(std::string_view names, std::optional<double>& into, std::string_view placeholder,
        std::string_view meaning);
    void wholeNumber(std::string_view names, std::optional<int>& into, int least, int most,
        std::string_view placeholder, std::string_view meaning);
    // A value of any other kind: `take` reads it, and throws a `UsageError` of what it cannot read.
    void value(std::string_view names, std::string_view placeholder,
        const std::function<void(const std::string& text)>& take, std::string_view meaning);
    void flag(std::string_view names, bool& into, std::string_view meaning);
    // One of a few words, in any case.
    template <class T>
    void choice(std::string_view name, std::optional<T>& into,
        std::vector<std::pair<std::string_view, T>> words, std::string_view meaning) {
        std::vector<std::string_view> known;
        for (const auto& word : words) known.push_back(word.first);
        choiceAmong(name, known, meaning, [&into, words](std::size_t index) { into = words[index].second; });
    }
    void jsonFlag(Terminal& terminal);
    void quietFlag(Terminal& terminal);

    // The words that an argument takes, where whoever asked last for it knows them: for completion alone.
    void completes(const std::string& name, std::vector<std::string> words);

    // False when help was asked for, which is then in `help`.
    bool parse(std::span<const std::string> words);
    std::string help() const;
    // All of them, in the order of their declaration; that for help too.
    std::vector<ArgumentEntry> entries() const;

private:
    void choiceAmong(std::string_view name, const std::vector<std::string_view>& known,
        std::string_view meaning, std::function<void(std::size_t index)> chosen);
    void requireNoExtras() const;

    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}   // namespace tavix::engine
