#include "TavixEditor/Windows/GalleryWindow.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/Inspector/MotionGallery.h"

#include <QVBoxLayout>

namespace tavix::editor {

using namespace design;

GalleryWindow::GalleryWindow(CompositionEditorModel& model, QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(QStringLiteral("preset-gallery"));
    setWindowTitle(tr("Motion Presets"));
    onGround(this, QPalette::Window);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    QWidget* gallery = makeMotionGallery(model, this);
    column->addWidget(gallery);
    setFocusProxy(gallery);
    resize(900, 680);
}

void GalleryWindow::present() {
    show();
    raise();
    activateWindow();
    setFocus();
}

}   // namespace tavix::editor
