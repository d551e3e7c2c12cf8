#include "Editor/EditorDesignSystem/Style/Tokens.h"

#include <array>
#include <cstddef>

namespace tavix::design {

QFont fontOf(TextSize size) {
    struct Row {
        int sizePx;
        QFont::Weight weight;
    };
    static constexpr std::array<Row, 5> rows{{{11, QFont::Medium}, {13, QFont::Normal}, {13, QFont::DemiBold},
        {15, QFont::DemiBold}, {24, QFont::DemiBold}}};
    const Row row = rows[std::size_t(size)];
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(row.sizePx);
    font.setWeight(row.weight);
    font.setHintingPreference(QFont::PreferNoHinting);   // the same widths at every scale factor
    return font;
}

const Theme& dark() {
    static const Theme theme{.stage = 0x0f1012,
        .window = 0x17181b,
        .panel = 0x1e1f23,
        .raised = 0x282a2f,
        .field = 0x131417,
        .hover = 0x2e3036,
        .pressed = 0x383b42,
        .hairline = 0x2d2f35,
        .focus = 0x7f9bff,
        .text = 0xe8e9ec,
        .secondary = 0xa0a3ab,
        .disabled = 0x63666e,
        .accent = 0x466be4,
        .onAccent = 0xffffff,
        .playhead = 0xff5a4f,
        .danger = 0xff6b5e,
        .warning = 0xe3b352,
        .success = 0x57c08b,
        .wave = 0x47727c,
        .kinds = {0x4c6fc4, 0x7d5fc0, 0x2f8076, 0xa8623d, 0x827331, 0xa04f78},
        .isDark = true};
    return theme;
}

const Theme& light() {
    static const Theme theme{.stage = 0xd9dade,
        .window = 0xf3f3f5,
        .panel = 0xfcfcfd,
        .raised = 0xffffff,
        .field = 0xededf0,
        .hover = 0xe6e7eb,
        .pressed = 0xdadce1,
        .hairline = 0xdfe0e5,
        .focus = 0x3d63f0,
        .text = 0x1b1c1f,
        .secondary = 0x5c6068,
        .disabled = 0xa3a6ad,
        .accent = 0x3d63f0,
        .onAccent = 0xffffff,
        .playhead = 0xe2382c,
        .danger = 0xc93327,
        .warning = 0x8f6200,
        .success = 0x1b7f4d,
        .wave = 0x8fb5bd,
        .kinds = {0x4b6fce, 0x7d5cc6, 0x2a8073, 0xad6036, 0x806f28, 0xab4f7e},
        .isDark = false};
    return theme;
}

const Theme& contrastDark() {
    static const Theme theme = [] {
        Theme changed = dark();
        changed.window = changed.panel = QColor(0, 0, 0);
        changed.field = 0x0a0a0a;
        changed.hairline = 0x8a8d96;
        changed.text = changed.focus = 0xffffff;
        changed.secondary = 0xdcdde2;
        changed.disabled = 0x9a9da6;
        return changed;
    }();
    return theme;
}

const Theme& contrastLight() {
    static const Theme theme = [] {
        Theme changed = light();
        changed.window = changed.panel = 0xffffff;
        changed.hairline = 0x6a6d75;
        changed.text = changed.focus = QColor(0, 0, 0);
        changed.secondary = 0x2c2e33;
        changed.disabled = 0x6a6d75;
        changed.accent = 0x1c3fc4;
        return changed;
    }();
    return theme;
}

}   // namespace tavix::design
