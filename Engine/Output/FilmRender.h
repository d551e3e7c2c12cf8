// How a film becomes a file on the command line, whatever it is made from: what it may take of disk, memory
// and bytes, and whether it is looked at afterwards. Every verb that renders a film takes the same.
#pragma once

#include "Engine/Output/OutputChoice.h"
#include "Engine/Output/PieceArguments.h"
#include "TavixCore/Support/Json.h"
#include "TavixRender/Export/PieceRender.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tavix::engine {

class Arguments;
class Interruption;
class ProgressLines;
class Terminal;

class FilmRender {
public:
    void declare(Arguments& arguments);
    const PieceArguments& pieces() const { return pieces_; }

    // The whole work of a verb: programs that ask for it are told how far it is, and how it ended.
    void tellingProgress(Terminal& terminal, const std::function<void(ProgressLines& lines)>& work) const;

    struct Tellers {
        const Interruption& interruption;
        Terminal& terminal;
        ProgressLines& lines;
    };
    // Writes the film and says so; its file is filled in here. Throws `UsageError` for wishes that contradict
    // each other, and `Failure`.
    void write(PiecedFilm film, const OutputChoice& choice, const Tellers& tellers) const;

private:
    void requireAgreement(const FilmFile& file) const;
    PieceRender::Report writeUnder(
        PiecedFilm& film, const FilmWriter::Progress& onProgress, const Tellers& tellers) const;

    PieceArguments pieces_;
    std::optional<std::int64_t> mostBytes_;
    std::optional<bool> hasLines_;
    bool isVerified_ = false;
};

}   // namespace tavix::engine
