#include "TavixCore/Timeline/Timeline.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<Timeline::Video>& fieldsOf(std::type_identity<Timeline::Video>) {
    using V = Timeline::Video;
    static const Fields<V> table{"TimelineVideo",
        {field<&V::widthPx>("widthPx", "How wide the video is.").measuredIn(Unit::pixels).required(),
            field<&V::heightPx>("heightPx", "How high the video is.").measuredIn(Unit::pixels).required(),
            field<&V::fps>("fps", "Its frames per second.").required()}};
    return table;
}

const Fields<Timeline::Event>& fieldsOf(std::type_identity<Timeline::Event>) {
    using E = Timeline::Event;
    static const Fields<E> table{"TimelineEvent",
        {field<&E::index>("index", "The number of the step.").required(),
            field<&E::type>("type", "What was done, as in tap or scroll.").required(),
            field<&E::tSec>("tSec", "When the step starts, on the clock of the video.")
                .measuredIn(Unit::seconds)
                .required(),
            field<&E::regionPx>("regionPx", "Where its target stands, in pixels of the video.")
                .measuredIn(Unit::pixels),
            field<&E::label>("label", "The name of its target, which marks refer to."),
            field<&E::actionSec>("actionSec", "When the gesture lands, on the clock of the video.")
                .measuredIn(Unit::seconds),
            field<&E::endSec>("endSec", "When its motion ends, on the clock of the video.")
                .measuredIn(Unit::seconds)}};
    return table;
}

const Fields<Timeline>& fieldsOf(std::type_identity<Timeline>) {
    static const Fields<Timeline> table{
        "Timeline", {field<&Timeline::video>("video", "The recording.").required(),
                        field<&Timeline::events>("events", "What happened in it, in order.").required()}};
    return table;
}

}   // namespace tavix
