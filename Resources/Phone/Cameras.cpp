// The camera plate, its lenses, its lamp and what else looks to the back.
#include "Phone/Dimensions.h"
#include "Phone/Pieces.h"

namespace tavix::phone {

namespace {

constexpr int lensSteps = 88, eyeSteps = 48;
constexpr double ringRadiusMm = 7.6;
constexpr double lensStepMm = 8.75;   // from the plate's middle to a lens, in both directions

Placement platePlace() { return bodyPlace().moved(plateCentreMm); }

Outline plateOutline() { return continuousRectangle({plateSideMm, plateSideMm}, plateCornerExtentMm, 24); }

// A hollow fillet at the foot, a rounded shoulder above.
Profile plateSection() {
    return section(
        {{{0.6, halfDepthMm}}, {{0, halfDepthMm}, 0.4, 5}, {{0, plateTopMm}, 0.85, 9}, {{-1.2, plateTopMm}}});
}

// Seen from behind, three lenses and, at the lower left, the lamp with its companions.
std::vector<Placement> lensPlaces() {
    std::vector<Placement> places;
    for (const Vec2 at : {Vec2{-1, 1}, Vec2{1, 1}, Vec2{1, -1}})
        places.push_back(platePlace().moved(at * lensStepMm));
    return places;
}
Placement companionPlace(Vec2 by) { return platePlace().moved(Vec2{-lensStepMm, -lensStepMm} + by); }

// A round thing let into the plate: the rim's border, and what fills it.
struct Eye {
    Placement place;
    double radius;
};
Eye lamp() { return {companionPlace({0, 1.4}), 3.1}; }
Eye sensor() { return {companionPlace({2.9, -4.2}), 1.5}; }
Eye microphone() { return {companionPlace({-2.6, -4.2}), 0.55}; }

Loop eyeBorder(const Eye& eye) { return ringAt(eye.place, circle(0, eyeSteps), {eye.radius, plateTopMm}); }

void revolve(Surface& surface, const Placement& place, const Profile& profile, int steps) {
    loft(surface, place, circle(0, steps), profile);
}

void addLamp(Model& model) {
    const auto [place, r] = lamp();
    constexpr double top = plateTopMm, bed = plateTopMm - 0.35;
    revolve(model["ring_color3"], place,
        section({{{r, top}}, {{r - 0.12, top + 0.06}}, {{r - 0.34, top + 0.06}, 0.05, 2}, {{r - 0.45, bed}}}),
        eyeSteps);
    // Ridges like a lighthouse's lens throw the light about.
    Surface& flash = model["flash"];
    double outer = r - 0.45;
    for (int i = 0; i < 5; ++i) {
        const double inner = outer - 0.42;
        revolve(flash, place,
            section({{{outer, i == 0 ? bed : bed + 0.02}}, {{inner, bed + 0.15}}, {{inner, bed + 0.02}}}),
            eyeSteps);
        outer = inner;
    }
    revolve(flash, place, dome({outer, bed + 0.02}, {0, bed + 0.2}, 0.05, 5), eyeSteps);
}

void addSensor(Model& model) {
    const auto [place, r] = sensor();
    constexpr double top = plateTopMm;
    revolve(model["well_black"], place,
        section({{{r, top}}, {{r - 0.1, top - 0.1}}, {{r - 0.1, top - 0.12}}}), eyeSteps);
    revolve(model["well_black"], place, dome({r - 0.1, top - 0.12}, {0, top - 0.04}, 0.03, 5), eyeSteps);
}

void addMicrophone(Model& model) {
    const auto [place, r] = microphone();
    const Profile wall =
        section({{{r, plateTopMm}}, {{r - 0.06, plateTopMm - 0.06}}, {{r - 0.06, plateTopMm - 1}}});
    Surface& dark = model["port_black"];
    revolve(dark, place, wall, eyeSteps);
    fill(dark, {ringAt(place, circle(0, eyeSteps), wall.back().at)}, place.up);
}

}   // namespace

Loop plateBorder() { return ringAt(platePlace(), plateOutline(), plateSection().front().at); }

void addCameras(Model& model) {
    Surface& plate = model["plate_color2"];
    const Profile profile = plateSection();
    loft(plate, platePlace(), plateOutline(), profile);
    std::vector<Loop> loops{ringAt(platePlace(), plateOutline(), profile.back().at)};
    for (const Eye& eye : {lamp(), sensor(), microphone()}) loops.push_back(eyeBorder(eye));
    for (const Placement& place : lensPlaces()) {
        loops.push_back(lensBorder(place));
        addLens(model, place);
    }
    fill(plate, loops, platePlace().up);
    addLamp(model);
    addSensor(model);
    addMicrophone(model);
}

Loop lensBorder(const Placement& centre) {
    return ringAt(centre, circle(0, lensSteps), {ringRadiusMm, plateTopMm});
}

// The ring and the dark well under it belong to the body. The barrel stands in the well as a closed thing of
// its own, so that a view that leaves it out shows a well and no hole.
void addLens(Model& model, const Placement& centre) {
    constexpr double top = 7.2, floor = 4.6, inner = 6.15;
    const auto turn = [&](std::string_view part, const Profile& profile) {
        revolve(model[part], centre, profile, lensSteps);
    };
    turn("ring_color3", section({{{ringRadiusMm, plateTopMm}}, {{ringRadiusMm, top}, 0.42, 6},
                            {{6.55, top}, 0.12, 3}, {{inner, 6.7}}, {{inner, 6.4}}}));
    turn("well_black", section({{{inner, 6.4}}, {{inner, floor}}}));
    fill(model["well_black"], {ringAt(centre, circle(0, lensSteps), {inner, floor})}, centre.up);

    // Black glass around the opening, on a wall that reaches down into the well.
    constexpr double cover = 6.5, edge = 6.1, open = 4.15, rim = 3.05, deep = 5.35;
    turn("cover_black1", section({{{edge, floor + 0.1}}, {{edge, cover}, 0.22, 5},
                             {{open + 0.12, cover}, 0.05, 2}, {{open, cover - 0.14}}}));
    fill(model["cover_black1"], {ringAt(centre, circle(0, lensSteps), {edge, floor + 0.1})}, centre.up * -1);
    // A stepped cone, matt against stray light.
    turn("bezel_black2", section({{{open, cover - 0.14}}, {{3.85, 6.2}}, {{3.65, 6.2}}, {{3.5, 5.92}},
                             {{3.36, 5.92}}, {{3.22, 5.64}}, {{3.1, 5.64}}, {{rim, deep}}}));
    // Two elements, with a coated edge between them that throws back a tint.
    constexpr double second = 1.9, third = 1.55;
    turn("camera_lens", dome({rim, deep}, {second, deep + 0.42}, 0.07, 6));
    turn("coating_21", section({{{second, deep + 0.42}}, {{third, deep + 0.25}}}));
    turn("camera_lens", dome({third, deep + 0.25}, {0, deep + 0.6}, 0.1, 8));
}

}   // namespace tavix::phone
