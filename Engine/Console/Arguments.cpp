#include "Engine/Console/Arguments.h"

#include "Engine/Console/Terminal.h"
#include "Engine/System/Errors.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

namespace tavix::engine {

namespace {

template <class T> std::optional<T> parsed(const std::string& text) {
    T value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

// "--output" of "-o,--output".
std::string longName(std::string_view names) { return std::string(names.substr(names.find(',') + 1)); }

std::string inQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

}   // namespace

struct Arguments::Impl {
    CLI::App app;
    std::string verb;
    std::string missingPositional;
    std::map<std::string, std::vector<std::string>> words;   // of an argument, by its long name

    Impl(std::string_view name, std::string_view summary)
        : app(std::string(summary), "tavix " + std::string(name)), verb(name) {
        app.allow_extras();
        app.set_help_flag("-h,--help", "Show this.");
        app.get_formatter()->column_width(34);
    }
    CLI::Option* add(std::string_view names, std::string_view meaning,
        const std::function<void(const std::string&)>& take) {
        return app.add_option_function<std::string>(std::string(names), take, std::string(meaning));
    }
};

Arguments::Arguments(std::string_view verb, std::string_view summary, std::string_view example)
    : impl_(std::make_unique<Impl>(verb, summary)) {
    impl_->app.footer("Example:\n  " + std::string(example));
}

Arguments::~Arguments() = default;

void Arguments::positional(
    std::string_view name, std::string& into, std::string_view meaning, std::string missing) {
    const auto take = [&into](const std::string& value) { into = value; };
    impl_->add(name, meaning, take)->type_name("")->required(!missing.empty());
    if (!missing.empty()) impl_->missingPositional = std::move(missing);
}

void Arguments::text(std::string_view names, std::optional<std::string>& into, std::string_view placeholder,
    std::string_view meaning) {
    impl_->add(names, meaning, [&into](const std::string& value) { into = value; })
        ->type_name(std::string(placeholder));
}

void Arguments::texts(std::string_view names, std::vector<std::string>& into, std::string_view placeholder,
    std::string_view meaning) {
    impl_->add(names, meaning, [&into](const std::string& value) { into.push_back(value); })
        ->type_name(std::string(placeholder))
        ->trigger_on_parse();
}

void Arguments::number(std::string_view names, std::optional<double>& into, std::string_view placeholder,
    std::string_view meaning) {
    const auto take = [&into, name = longName(names)](const std::string& value) {
        into = parsed<double>(value);
        if (!into || !std::isfinite(*into))
            throw UsageError(name + " takes a number, not " + inQuotes(value) + ".");
    };
    impl_->add(names, meaning, take)->type_name(std::string(placeholder));
}

void Arguments::wholeNumber(std::string_view names, std::optional<int>& into, int least, int most,
    std::string_view placeholder, std::string_view meaning) {
    const auto take = [&into, least, most, name = longName(names)](const std::string& value) {
        into = parsed<int>(value);
        if (!into || *into < least || *into > most)
            throw UsageError(name + " takes a whole number from " + std::to_string(least) + " to " +
                             std::to_string(most) + ", not " + inQuotes(value) + ".");
    };
    impl_->add(names, meaning, take)->type_name(std::string(placeholder));
}

void Arguments::value(std::string_view names, std::string_view placeholder,
    const std::function<void(const std::string& text)>& take, std::string_view meaning) {
    impl_->add(names, meaning, take)->type_name(std::string(placeholder));
}

void Arguments::flag(std::string_view names, bool& into, std::string_view meaning) {
    impl_->app.add_flag(std::string(names), into, std::string(meaning));
}

void Arguments::choiceAmong(std::string_view name, const std::vector<std::string_view>& known,
    std::string_view meaning, std::function<void(std::size_t index)> chosen) {
    const auto take = [known, chosen = std::move(chosen), name = std::string(name)](
                          const std::string& value) {
        const auto found = std::find_if(known.begin(), known.end(),
            [&](std::string_view word) { return equalIgnoringCase(word, value); });
        if (found == known.end())
            throw UsageError(name + " " + inQuotes(value) + " is not known; use " + listed(known) + "." +
                             suggestion(value, known));
        chosen(static_cast<std::size_t>(found - known.begin()));
    };
    completes(std::string(name), {known.begin(), known.end()});
    std::string shown;
    for (const std::string_view word : known) shown.append(shown.empty() ? "" : "|").append(word);
    impl_->add(name, meaning, take)->type_name(shown);
}

void Arguments::completes(const std::string& name, std::vector<std::string> words) {
    impl_->words[name] = std::move(words);
}

void Arguments::jsonFlag(Terminal& terminal) {
    impl_->app.add_flag_callback(
        "--json", [&terminal] { terminal.setMode(Terminal::Mode::json); }, "Give the result as JSON.");
}

void Arguments::quietFlag(Terminal& terminal) {
    const auto quiet = [&terminal] {
        if (terminal.mode() == Terminal::Mode::people) terminal.setMode(Terminal::Mode::quiet);
    };
    impl_->app.add_flag_callback("-q,--quiet", quiet, "Say nothing but warnings and errors.");
}

bool Arguments::parse(std::span<const std::string> words) {
    try {
        impl_->app.parse(
            std::vector<std::string>(words.rbegin(), words.rend()));   // it takes them from the end
    } catch (const CLI::CallForHelp&) {
        return false;
    } catch (const CLI::RequiredError&) {
        throw UsageError(impl_->missingPositional);
    } catch (const CLI::ArgumentMismatch& error) {   // "--fps: 1 required N missing"
        const std::string reason = error.what();
        throw UsageError(reason.substr(0, reason.find(':')) + " needs a value.");
    } catch (const CLI::ParseError& error) {
        throw UsageError(std::string(error.what()) + ".");
    }
    requireNoExtras();
    return true;
}

void Arguments::requireNoExtras() const {
    const std::vector<std::string> extras = impl_->app.remaining();
    if (extras.empty()) return;
    const std::string& extra = extras.front();
    if (extra.size() < 2 || extra.front() != '-')
        throw UsageError(inQuotes(extra) + " is one argument too many for " + impl_->verb + ".");
    std::vector<std::string> names;
    for (const CLI::Option* option : impl_->app.get_options())
        for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    const std::vector<std::string_view> known(names.begin(), names.end());
    const std::string name = extra.substr(0, extra.find('='));
    throw UsageError(impl_->verb + " has no option " + name + "." + suggestion(name, known));
}

std::string Arguments::help() const { return impl_->app.help(); }

std::vector<ArgumentEntry> Arguments::entries() const {
    std::vector<ArgumentEntry> all;
    for (const CLI::Option* option : impl_->app.get_options()) {
        ArgumentEntry entry;
        entry.isInPlace = option->get_positional();
        for (const std::string& name : option->get_snames()) entry.names.push_back("-" + name);
        for (const std::string& name : option->get_lnames()) entry.names.push_back("--" + name);
        if (entry.isInPlace) entry.names = {option->get_name(true)};
        if (option->get_items_expected_max() > 0) entry.placeholder = option->get_type_name();
        entry.meaning = option->get_description();
        entry.isRequired = option->get_required();
        if (const auto known = impl_->words.find(entry.names.back()); known != impl_->words.end())
            entry.words = known->second;
        all.push_back(std::move(entry));
    }
    return all;
}

}   // namespace tavix::engine
