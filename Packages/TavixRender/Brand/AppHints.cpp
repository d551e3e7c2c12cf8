#include "TavixRender/Brand/AppHints.h"

#include "TavixRender/Brand/AndroidHints.h"
#include "TavixRender/Brand/DesktopHints.h"
#include "TavixRender/Brand/WebHints.h"

namespace tavix::AppHints {

Hints hintsIn(const std::filesystem::path& bundle) {
    for (const auto reader : {webHints, desktopHints, androidHints})
        if (auto hints = reader(bundle)) return std::move(*hints);
    return {};
}

}   // namespace tavix::AppHints
