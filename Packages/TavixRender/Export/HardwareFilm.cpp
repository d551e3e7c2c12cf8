#include "TavixRender/Export/HardwareFilm.h"

#include "TavixBase/Failure.h"
#include "TavixRender/Assets/ProgramIdentity.h"
#include "TavixRender/Encoding/RenderStopped.h"

namespace tavix::HardwareFilm {

namespace {

std::string clauseOf(const Failure& failure) {
    std::string clause = failure.what();
    if (clause.ends_with('.')) clause.pop_back();
    return clause;
}

}   // namespace

Outcome write(PiecedFilm& film, const Steps& steps, const std::stop_token& stop) {
    if (!film.file.hardware) return {steps.make(film), {}};
    // The libraries of a driver are none of those that pieces depend on.
    programIdentity();
    PiecedFilm attempt = film;
    attempt.pieceStore.reset();   // the same frames need not give the same bytes again
    try {
        Outcome outcome{steps.make(attempt), {}};
        FilmCheck::probe(attempt, attempt.file.output);
        if (steps.beginCheck) steps.beginCheck();
        outcome.likeness = FilmCheck::verify(attempt, attempt.file.output, steps.onCheck, stop);
        film = std::move(attempt);
        return outcome;
    } catch (const RenderStopped&) {
        throw;
    } catch (const Failure& failure) {
        const std::string refusal = clauseOf(failure);
        film.file.hardware.reset();
        if (steps.onRefusal) steps.onRefusal(refusal);
        return {steps.make(film), {}, refusal};
    }
}

std::string sentenceOf(const media::HardwareEncoder& asked, const std::string& refusal) {
    return asked.name + " was asked for and is not used (" + refusal + "); the film is encoded by " +
           media::softwareEncoderName(asked.codec) + " instead.";
}

VideoCodec codecOf(const media::HardwareEncoder& encoder) {
    switch (encoder.codec) {
    case media::MovieCodec::hevc: return VideoCodec::hevc;
    case media::MovieCodec::vp9: return VideoCodec::vp9;
    case media::MovieCodec::av1: return VideoCodec::av1;
    default: return VideoCodec::h264;
    }
}

}   // namespace tavix::HardwareFilm
