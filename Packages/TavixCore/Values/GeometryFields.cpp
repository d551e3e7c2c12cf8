// The field tables of the plain points, sizes and rectangles.
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Values/LogicalRect.h"
#include "TavixCore/Values/LogicalSize.h"
#include "TavixCore/Values/NormalizedPoint.h"
#include "TavixCore/Values/NormalizedRect.h"
#include "TavixCore/Values/NormalizedVec2.h"
#include "TavixCore/Values/PixelPoint.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixCore/Values/Vector3.h"

namespace tavix {

namespace {

template <class R> Fields<R> pointFields(std::string_view name, Unit unit) {
    return {name, {field<&R::x>("x", "To the right.").measuredIn(unit).required(),
                      field<&R::y>("y", "Downwards.").measuredIn(unit).required()}};
}

template <class R>
Fields<R> rectFields(std::string_view name, Unit unit, RecordType::Form form = RecordType::Form::object) {
    return {name,
        {field<&R::x>("x", "Of its left side, to the right.").measuredIn(unit).required(),
            field<&R::y>("y", "Of its upper side, downwards.").measuredIn(unit).required(),
            field<&R::width>("width", "How wide it is.").measuredIn(unit).required(),
            field<&R::height>("height", "How high it is.").measuredIn(unit).required()},
        form};
}

}   // namespace

const Fields<PixelPoint>& fieldsOf(std::type_identity<PixelPoint>) {
    static const Fields<PixelPoint> table = pointFields<PixelPoint>("PixelPoint", Unit::pixels);
    return table;
}

const Fields<PixelRect>& fieldsOf(std::type_identity<PixelRect>) {
    static const Fields<PixelRect> table =
        rectFields<PixelRect>("PixelRect", Unit::pixels, RecordType::Form::list);
    return table;
}

const Fields<LogicalRect>& fieldsOf(std::type_identity<LogicalRect>) {
    static const Fields<LogicalRect> table = rectFields<LogicalRect>("LogicalRect", Unit::none);
    return table;
}

const Fields<LogicalSize>& fieldsOf(std::type_identity<LogicalSize>) {
    static const Fields<LogicalSize> table{
        "LogicalSize", {field<&LogicalSize::width>("width", "How wide it is.").required(),
                           field<&LogicalSize::height>("height", "How high it is.").required()}};
    return table;
}

const Fields<NormalizedPoint>& fieldsOf(std::type_identity<NormalizedPoint>) {
    static const Fields<NormalizedPoint> table = pointFields<NormalizedPoint>("NormalizedPoint", Unit::none);
    return table;
}

const Fields<NormalizedRect>& fieldsOf(std::type_identity<NormalizedRect>) {
    static const Fields<NormalizedRect> table = rectFields<NormalizedRect>("NormalizedRect", Unit::none);
    return table;
}

const Fields<NormalizedVec2>& fieldsOf(std::type_identity<NormalizedVec2>) {
    static const Fields<NormalizedVec2> table{"NormalizedVec2",
        {field<&NormalizedVec2::x>("x", "To the right."), field<&NormalizedVec2::y>("y", "Downwards.")}};
    return table;
}

const Fields<Vector3>& fieldsOf(std::type_identity<Vector3>) {
    static const Fields<Vector3> table{
        "Vector3", {field<&Vector3::x>("x", "Along, or about, the axis to the right.").required(),
                       field<&Vector3::y>("y", "Along, or about, the axis upwards.").required(),
                       field<&Vector3::z>("z", "Along, or about, the axis towards the viewer.").required()}};
    return table;
}

}   // namespace tavix
