#include "TavixEditor/App/ThemeChoice.h"

#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixBase/Failure.h"

#include <QApplication>

#include <array>

namespace tavix::editor {

namespace {

constexpr std::string_view key = "editorTheme";
constexpr std::array<std::string_view, 3> names{"desktop", "dark", "light"};

ThemeWish remembered(const UserDefaults& defaults) {
    const Json value = defaults.value(key);
    const std::string* name = value.text();
    for (std::size_t i = 0; name && i < names.size(); ++i)
        if (*name == names[i]) return ThemeWish(i);
    return ThemeWish::desktop;
}

}   // namespace

const design::Theme& themeFor(ThemeWish wish, const DesktopLook& look) {
    const bool isLight =
        wish == ThemeWish::light || (wish == ThemeWish::desktop && look.scheme == DesktopLook::Scheme::light);
    if (look.isContrastHigh) return isLight ? design::contrastLight() : design::contrastDark();
    return isLight ? design::light() : design::dark();
}

ThemeChoice::ThemeChoice(UserDefaults defaults)
    : defaults_(std::move(defaults)), wish_(remembered(defaults_)), portal_([this](const DesktopLook& look) {
          look_ = look;
          apply();
      }) {
    apply();
}

void ThemeChoice::setWish(ThemeWish wish) {
    wish_ = wish;
    try {
        defaults_.set(key, std::string(names[std::size_t(wish)]));
    } catch (const Failure&) {
        // A theme is not worth a word.
    }
    apply();
}

void ThemeChoice::apply() const {
    const design::Theme& theme = themeFor(wish_, look_);
    design::setMotionReduced(look_.isMotionReduced);
    if (&design::Style::theme() == &theme && QApplication::style()->inherits("QProxyStyle")) return;
    design::Style::apply(*qobject_cast<QApplication*>(QCoreApplication::instance()), theme);
}

}   // namespace tavix::editor
