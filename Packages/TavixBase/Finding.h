// Something that whoever asked for work should know: how far it is, what was done otherwise than asked, what
// is wrong. Whoever shows it makes a line of it; nothing in it is a mark or a colour.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tavix {

struct Finding {
    enum class Level {
        error,      // stops the work, or what would come of it is of no use
        warning,    // the work goes on, but not as it was asked for
        note,       // what was done
        progress,   // how far it is
    };

    Level level = Level::error;
    std::string path =
        {};   // in the document: keys and [indices] from the root: "scenes[2].layers[0].fromSec"
    std::string message = {};                     // a finished sentence
    std::optional<std::string> suggestion = {};   // another one: what to do
    std::string_view code = {};   // by which programs know it; lives to the end of the program
    std::string file = {};        // that it speaks of; empty for none

    static Finding warning(std::string_view code, std::string message, std::string file = {}) {
        return {Level::warning, {}, std::move(message), {}, code, std::move(file)};
    }
    static Finding note(std::string_view code, std::string message) {
        return {Level::note, {}, std::move(message), {}, code, {}};
    }
    static Finding progress(std::string_view code, std::string message) {
        return {Level::progress, {}, std::move(message), {}, code, {}};
    }

    // What is told; its code and its file follow from it.
    bool operator==(const Finding& other) const {
        return level == other.level && path == other.path && message == other.message &&
               suggestion == other.suggestion;
    }
};

}   // namespace tavix
