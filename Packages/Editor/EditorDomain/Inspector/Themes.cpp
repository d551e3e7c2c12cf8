#include "Editor/EditorDomain/Inspector/Themes.h"

#include "TavixLive/Operations/AudioOperations.h"

namespace tavix {

std::string_view label(BasicCompositionTheme theme) {
    switch (theme) {
    case BasicCompositionTheme::midnight: return "Midnight";
    case BasicCompositionTheme::ocean: return "Deep Blue";
    case BasicCompositionTheme::sunset: return "Warm Sunset";
    case BasicCompositionTheme::paper: return "Soft Paper";
    }
    return {};
}

const BackgroundFill& fillOf(BasicCompositionTheme theme) {
    static const std::array<BackgroundFill, 4> fills{LinearGradient::standard(),
        LinearGradient{{{{0.03, 0.16, 0.31, 1}, 0}, {{0.01, 0.03, 0.1, 1}, 1}}, 25},
        LinearGradient{{{{0.45, 0.1, 0.12, 1}, 0}, {{0.08, 0.03, 0.1, 1}, 1}}, 35},
        RGBAColor{0.93, 0.91, 0.86, 1}};
    return fills[std::size_t(theme)];
}

std::optional<BasicCompositionTheme> selectedTheme(const CompositionSpec& spec) {
    for (const BasicCompositionTheme theme : allThemes)
        if (fillOf(theme) == spec.background) return theme;
    return std::nullopt;
}

bool isMuted(const CompositionSpec& spec) {
    return spec.audio && spec.audio->music && spec.audio->music->gain <= 0;
}

void setTrack(EditState& state, const std::string& path) {
    AudioOperations::setMusicEnabled(state, true);
    state.spec.audio->music->path = path;
}

}   // namespace tavix
