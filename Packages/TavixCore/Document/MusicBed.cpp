#include "TavixCore/Document/MusicBed.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<MusicBed>& fieldsOf(std::type_identity<MusicBed>) {
    static const Fields<MusicBed> table{"MusicBed",
        {field<&MusicBed::path>("path", "The sound file, relative to the asset root.").as(Role::soundFile),
            field<&MusicBed::gain>("gain", "Loudness; 1 is as recorded.").measuredIn(Unit::times).atLeast(0),
            field<&MusicBed::startAtSec>("startAtSec", "Where in the file it begins.")
                .measuredIn(Unit::seconds)
                .atLeast(0),
            field<&MusicBed::fadeInSec>("fadeInSec", "How long it takes to come in.")
                .measuredIn(Unit::seconds)
                .atLeast(0),
            field<&MusicBed::fadeOutSec>("fadeOutSec", "How long it takes to go, at the end of the film.")
                .measuredIn(Unit::seconds)
                .atLeast(0),
            field<&MusicBed::bpm>("bpm", "Its tempo; needed for times in beats. `tavix beats` finds it.")
                .measuredIn(Unit::beatsPerMinute),
            field<&MusicBed::firstBeatSec>(
                "firstBeatSec", "When its first beat falls, in seconds of the file.")
                .measuredIn(Unit::seconds)
                .atLeast(0)
                .unlessDefault()}};
    return table;
}

}   // namespace tavix
