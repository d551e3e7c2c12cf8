// Which theme is in force: the one that the user chose, or that of the desktop.
#pragma once

#include "TavixEditor/App/ThemePortal.h"
#include "TavixLive/Files/UserDefaults.h"

namespace tavix::design {
struct Theme;
}

namespace tavix::editor {

enum class ThemeWish { desktop, dark, light };

// Dark where the desktop has no wish.
const design::Theme& themeFor(ThemeWish wish, const DesktopLook& look);

class ThemeChoice {
public:
    // Applies what was chosen before, and follows the desktop from now on.
    explicit ThemeChoice(UserDefaults defaults);

    ThemeWish wish() const { return wish_; }
    // Remembered; where it cannot be, it holds until the end of the program.
    void setWish(ThemeWish wish);

private:
    void apply() const;

    UserDefaults defaults_;
    ThemeWish wish_;
    DesktopLook look_;
    ThemePortal portal_;
};

}   // namespace tavix::editor
