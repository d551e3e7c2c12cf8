// Renders the small film of a preset, or a strip of its moments.
#pragma once

#include <string>

namespace tavix::engine {

struct PresetScene;
class Terminal;

// A .png is a strip of moments, any kind of film the whole. Tells what it wrote. Throws as `render` and
// `sheet` do.
void writePreview(const PresetScene& scene, const std::string& output, Terminal& terminal);

}   // namespace tavix::engine
