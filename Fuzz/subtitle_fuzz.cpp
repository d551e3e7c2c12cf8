// Any bytes are captions or a failure with a sentence; what is read can be written and read again, in both
// forms.
#include "TavixAgent/Exchange/Subtitles.h"
#include "TavixBase/Failure.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tavix;
    try {
        const SubtitleReading reading = readSubtitles({reinterpret_cast<const char*>(data), size});
        for (const SubtitleCue& cue : reading.cues)
            check(cue.toSec > cue.fromSec && !cue.text.empty() && cue.text.find("\n\n") == std::string::npos);
        for (const Finding& note : reading.notes) check(note.message.ends_with('.'));
        // Shorter than a millisecond, a caption is gone once it is written.
        const std::string once = writeSubtitles(reading.cues, SubtitleForm::vtt);
        try {
            const SubtitleReading again = readSubtitles(once);
            check(writeSubtitles(again.cues, SubtitleForm::vtt) == once ||
                  again.cues.size() < reading.cues.size());
        } catch (const Failure&) {
            for (const SubtitleCue& cue : reading.cues) check(cue.toSec - cue.fromSec < 0.0015);
        }
        writeSubtitles(reading.cues, SubtitleForm::srt);
    } catch (const Failure& failure) {
        check(failure.message().ends_with('.'));
    }
    return 0;
}
