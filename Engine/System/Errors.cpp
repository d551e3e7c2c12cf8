#include "Engine/System/Errors.h"

#include "Engine/System/SystemWatch.h"

#include <new>
#include <system_error>

namespace tavix::engine {

namespace {

// The errors of the standard library are no sentences.
std::string sentenceOfOne(const std::exception& error) {
    if (dynamic_cast<const std::bad_alloc*>(&error)) return SystemWatch::sentence();
    if (const auto* system = dynamic_cast<const std::system_error*>(&error)) {
        if (SystemWatch::hasRefused()) return SystemWatch::sentence();
        return "The system refused: " + system->code().message() + ".";
    }
    const std::string sentence = error.what();
    const bool isFinished =
        sentence.ends_with('.') || sentence.ends_with('?');   // as in "Did you mean this?"
    return isFinished ? sentence : "The work could not be done: " + sentence + ".";
}

}   // namespace

std::string sentenceOf(const std::exception& error) {
    std::string sentence = sentenceOfOne(error);
    try {
        std::rethrow_if_nested(error);
    } catch (const std::exception& cause) {
        sentence += " " + sentenceOf(cause);
    }
    return sentence;
}

}   // namespace tavix::engine
