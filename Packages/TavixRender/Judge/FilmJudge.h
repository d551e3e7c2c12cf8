// What the eye would see is wrong with a film, told without drawing it: what is not there, what never shows,
// what cannot be read. Geometry takes milliseconds, and of files only the heads are read.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixRender/Judge/FrameGeometry.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix::FilmJudge {

using CompositionLint::Finding;

// Pictures, clips, fonts and sounds that are not there or cannot be opened. Relative paths belong to the
// root.
std::vector<Finding> missingFiles(const CompositionSpec& spec, FilmAssets& assets);

// Of a document with its times in seconds: layers that are never seen, texts that are broken, too large or
// moved, texts that are hard to tell from what lies under them, formations that leave the frame, scenes that
// open empty.
std::vector<Finding> seen(const CompositionGeometry& geometry);

// The rules by themselves, for one scene.
void layersAreSeen(const CompositionGeometry& geometry, std::size_t scene, std::vector<Finding>& findings);
void textsFit(const CompositionGeometry& geometry, std::size_t scene, std::vector<Finding>& findings);
void textsStandOut(const CompositionGeometry& geometry, std::size_t scene, std::vector<Finding>& findings);
void formationsFit(const CompositionGeometry& geometry, std::size_t scene, std::vector<Finding>& findings);
void opensWithSomething(
    const CompositionGeometry& geometry, std::size_t scene, std::vector<Finding>& findings);

// How often a scene may be looked at, so that one with thousands of layers takes no longer than one with a
// few dozen looked at closely; from 1 to `most`.
int affordableLooks(const CompositionGeometry& geometry, std::size_t scene, int most);

// "scenes[1].layers[0]".
std::string pathOf(std::size_t scene, std::size_t layer);
// The text of a layer, cut to a few words, in quotation marks; or its id; or its kind.
std::string nameOf(const CompositionLayer& layer);

// Texts this large, as a part of the canvas height, are large text as WCAG 2 means it: 18 points, or 14 when
// bold, on a screen that shows the film 720 pixels high at 96 to the inch.
inline constexpr double largeTextFraction = 24.0 / 720, largeBoldFraction = 18.66 / 720;
double leastContrastOf(const TextContent& text);   // 3 or 4.5

}   // namespace tavix::FilmJudge
