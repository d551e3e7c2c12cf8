#include "TavixEditor/Stage/FrameCopy.h"

#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/System/Continuation.h"
#include "TavixRender/Composition2D/CompositionFrameSource.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QImage>

#include <exception>

namespace tavix::editor {

namespace {

QImage drawnFrame(
    const CompositionSpec& spec, const std::optional<std::filesystem::path>& root, double atSec) {
    imaging::Evaluator evaluator;
    CompositionFrameSource source(spec, root, evaluator, {});
    const imaging::Size size = source.size();
    const imaging::Bitmap drawn = evaluator.draw(source.frame(atSec), {0, 0, size.width, size.height});
    const imaging::ConstBitmapView view = drawn.view();
    return QImage(view.pixels, view.size.width, view.size.height, qsizetype(view.strideBytes),
        QImage::Format_ARGB32_Premultiplied)
        .copy();
}

}   // namespace

void copyFrame(Studio& studio) {
    EditorState& state = studio.model.state;
    if (!state.isLoaded()) return;
    system::runThere(
        studio.workers(), studio.main(),
        [edited = state.edited.shared(), root = state.bundle(), atSec = state.currentTime()] {
            return drawnFrame(edited->spec, root, atSec);
        },
        [&state](system::Outcome<QImage>& outcome) {
            try {
                QGuiApplication::clipboard()->setImage(outcome.value());
                state.statusMessage = utf8Of(QCoreApplication::translate("FrameCopy", "Copied the frame."));
            } catch (const std::exception& error) {
                state.errorMessage =
                    utf8Of(QCoreApplication::translate("FrameCopy", "The frame could not be copied: %1")
                               .arg(QString::fromUtf8(error.what())));
            }
        });
}

}   // namespace tavix::editor
