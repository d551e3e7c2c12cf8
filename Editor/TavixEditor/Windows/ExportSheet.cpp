#include "TavixEditor/Windows/ExportSheet.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/Words.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>

namespace tavix::editor {

using namespace design;

namespace {

template <class Choice> void add(QComboBox* box, const QString& text, Choice choice) {
    box->addItem(text, int(choice));
}
template <class Choice> Choice chosen(const QComboBox* box) { return Choice(box->currentData().toInt()); }
template <class Choice> void choose(QComboBox* box, Choice choice) {
    box->setCurrentIndex(box->findData(int(choice)));
}

}   // namespace

ExportSheet::ExportSheet(CompositionEditorModel& model, QWidget* parent)
    : QDialog(parent), model_(model), format_(new QComboBox), codec_(new QComboBox),
      container_(new QComboBox), resolution_(new QComboBox),
      figures_(makeLabel({}, TextSize::caption, Tone::secondary)) {
    setObjectName(QStringLiteral("exportSheet"));
    setWindowTitle(tr("Export"));
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth(380);
    add(format_, tr("Video"), ExportFormat::video);
    add(format_, tr("Animated GIF"), ExportFormat::gif);
    for (const VideoCodec codec :
        {VideoCodec::h264, VideoCodec::hevc, VideoCodec::proRes422HQ, VideoCodec::proRes4444})
        add(codec_, words(displayName(codec)), codec);
    add(container_, QStringLiteral("MP4"), ExportContainer::mp4);
    add(container_, QStringLiteral("MOV"), ExportContainer::mov);
    for (const ResolutionPreset size :
        {ResolutionPreset::native, ResolutionPreset::p1080, ResolutionPreset::k4})
        add(resolution_, words(displayName(size)), size);
    choose(format_, model_.state.exportFormat());
    choose(codec_, model_.state.exportVideoCodec());
    choose(container_, model_.state.exportContainer());
    choose(resolution_, model_.state.exportResolution());

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(space::section, space::section, space::section, space::large);
    column->setSpacing(space::medium);
    column->addWidget(makeLabel(tr("Export"), TextSize::title));
    auto* form = new QFormLayout;
    form->setSpacing(space::small);
    form->setHorizontalSpacing(space::large);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("&Format"), format_);
    form->addRow(tr("&Codec"), codec_);
    form->addRow(tr("F&ile"), container_);
    form->addRow(tr("&Size"), resolution_);
    column->addLayout(form);
    column->addWidget(figures_);
    auto* buttons = new QHBoxLayout;
    auto* cancel = new QPushButton(tr("Cancel"));
    auto* go = new QPushButton(tr("Export…"));
    go->setDefault(true);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(go);
    column->addSpacing(space::small);
    column->addLayout(buttons);
    QObject::connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    QObject::connect(go, &QPushButton::clicked, this, [this] { askWhere(); });
    for (QComboBox* box : {format_, codec_, container_, resolution_})
        QObject::connect(box, &QComboBox::currentIndexChanged, this, [this] { showChoice(); });
    showChoice();
}

ExportChoice ExportSheet::choice() const {
    return {chosen<ExportFormat>(format_), chosen<VideoCodec>(codec_), chosen<ExportContainer>(container_),
        chosen<ResolutionPreset>(resolution_)};
}

void ExportSheet::showChoice() {
    const ExportChoice now = choice();
    codec_->setEnabled(now.format == ExportFormat::video);
    container_->setEnabled(now.mayChooseContainer());
    const ExportFigures figures = figuresOf(model_.state.edited().spec, now);
    figures_->setText(tr("%1 × %2 pixels, %3 frames a second, %4 s, %5")
                          .arg(figures.size.width)
                          .arg(figures.size.height)
                          .arg(words(figures.fps.shown()))
                          .arg(figures.durationSec, 0, 'f', 1)
                          .arg(figures.hasSound ? tr("with sound") : tr("no sound")));
}

void ExportSheet::askWhere() {
    const ExportChoice now = choice();
    model_.state.exportFormat = now.format;
    model_.state.exportVideoCodec = now.codec;
    model_.state.exportContainer = now.container;
    model_.state.exportResolution = now.resolution;
    const auto& bundle = model_.state.bundle();
    const QString name = words(exportFilename(bundle ? bundle->stem().string() : std::string(), now));
    auto* dialog =
        new QFileDialog(this, tr("Export"), QStandardPaths::writableLocation(QStandardPaths::MoviesLocation),
            QStringLiteral("*") + words(now.extension()));
    dialog->setObjectName(QStringLiteral("exportTarget"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(words(now.extension().substr(1)));
    dialog->selectFile(name);
    QObject::connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& file) {
        model_.exportTo(pathOf(file));
        accept();
    });
    dialog->open();
}

}   // namespace tavix::editor
