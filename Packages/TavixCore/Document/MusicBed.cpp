#include "TavixCore/Document/MusicBed.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<MusicBed>& fieldsOf(std::type_identity<MusicBed>) {
    static const Fields<MusicBed> table{"MusicBed",
        {field<&MusicBed::path>("path", "The sound file, relative to the asset root.").as(Role::soundFile),
            field<&MusicBed::gain>("gain", "Loudness; 1 is as recorded.").atLeast(0),
            field<&MusicBed::startAtSec>("startAtSec", "Where in the file it begins.").atLeast(0),
            field<&MusicBed::fadeInSec>("fadeInSec", "How long it takes to come in.").atLeast(0),
            field<&MusicBed::fadeOutSec>("fadeOutSec", "How long it takes to go.").atLeast(0),
            field<&MusicBed::bpm>("bpm", "Its tempo in beats per minute; needed for times in beats."),
            field<&MusicBed::firstBeatSec>("firstBeatSec", "When its first beat falls.")
                .atLeast(0)
                .unlessDefault()}};
    return table;
}

}   // namespace tavix
