#include "Engine/Verbs/DescribeVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/System/Errors.h"
#include "TavixAgent/Describe/DescribeFrame.h"
#include "TavixCore/Support/Document.h"

#include <limits>

namespace tavix::engine {

namespace {

template <class Description> void print(const Description& description, Terminal& terminal) {
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(writeValue(typeOf<Description>(), &description));
    else
        terminal.result(textOf(description));
}

}   // namespace

void DescribeVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.");
    arguments.number("--at", wish_.atSec, "SEC", "The moment, in seconds from the start of the film.");
    arguments.text("--scene", wish_.scene, "ID", "The scene that --local counts in.");
    arguments.number("--local", wish_.localSec, "SEC", "The moment, in seconds from the start of the scene.");
    arguments.number("--from", fromSec_, "SEC", "Tell what happens from here on, in place of one moment.");
    arguments.number("--to", toSec_, "SEC", "The end of that; the end of the film by default.");
    arguments.flag("--schema", printsSchema_, "Print the JSON Schema of what --json gives.");
    arguments.jsonFlag(terminal);
}

void DescribeVerb::run(Terminal& terminal) {
    const bool isRange = fromSec_ || toSec_;
    if (printsSchema_)
        return terminal.result(isRange ? schemaOf<RangeDescription>("range description")
                                       : schemaOf<FrameDescription>("frame description"));
    if (document_.empty())
        throw UsageError("describe needs a document: a .tavixcomp bundle or a composition.json.");
    if (isRange && (wish_.atSec || wish_.scene))
        throw UsageError("Say either a moment, by --at or --scene, or a range, by --from and --to.");
    const OpenFilm film(openDocument(document_));
    if (isRange)
        print(describeRange(
                  film, fromSec_.value_or(0), toSec_.value_or(std::numeric_limits<double>::infinity())),
            terminal);
    else
        print(describeFrame(film, momentOf(film.spec(), wish_)), terminal);
}

}   // namespace tavix::engine
