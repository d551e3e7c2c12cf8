#include "TavixEditor/Windows/ExportSheet.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Panels/ExportRow.h"
#include "TavixRender/Encoding/RenderStopped.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardPaths>

#include <cmath>
#include <initializer_list>

namespace tavix::editor {

using namespace design;

namespace {

constexpr double estimatePauseSec = 0.6, soundBytesPerSec = 32'000;
constexpr int usualQuality = 70;
constexpr double usualMegabits = 12, usualMegabytes = 10;

template <class Choice> void add(QComboBox* box, const QString& text, Choice choice) {
    box->addItem(text, int(choice));
}
template <class Choice> Choice chosen(const QComboBox* box) { return Choice(box->currentData().toInt()); }
template <class Choice> void choose(QComboBox* box, Choice choice) {
    box->setCurrentIndex(std::max(box->findData(int(choice)), 0));
}

}   // namespace

ExportSheet::ExportSheet(Studio& studio, QWidget* parent)
    : QDialog(parent), studio_(studio), model_(studio.model), format_(new QComboBox), codec_(new QComboBox),
      container_(new QComboBox), resolution_(new QComboBox), effort_(new QComboBox), keep_(new QComboBox),
      quality_(new QSpinBox), megabits_(new QDoubleSpinBox), megabytes_(new QDoubleSpinBox),
      figures_(makeLabel({}, TextSize::caption, Tone::secondary)), estimate_(makeLabel({}, TextSize::body)) {
    setObjectName(QStringLiteral("exportSheet"));
    setWindowTitle(tr("Export"));
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth(420);
    fill();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(space::section, space::section, space::section, space::large);
    column->setSpacing(space::medium);
    column->addWidget(makeLabel(tr("Export"), TextSize::title));
    column->addLayout(makeForm());
    column->addWidget(figures_);
    estimate_->setObjectName(QStringLiteral("exportEstimate"));
    estimate_->setWordWrap(true);
    column->addWidget(estimate_);
    column->addSpacing(space::small);
    column->addWidget(makeButtons());
    findChild<QPushButton*>(QStringLiteral("go"))->setDefault(true);
    for (QComboBox* box : {format_, codec_, container_, resolution_, effort_, keep_})
        QObject::connect(box, &QComboBox::currentIndexChanged, this, [this] { showChoice(); });
    QObject::connect(codec_, &QComboBox::currentIndexChanged, this, [this] { showContainers(); });
    QObject::connect(quality_, &QSpinBox::valueChanged, this, [this] { showChoice(); });
    for (QDoubleSpinBox* box : {megabits_, megabytes_})
        QObject::connect(box, &QDoubleSpinBox::valueChanged, this, [this] { showChoice(); });
    for (QComboBox* box : {format_, codec_})
        QObject::connect(box, &QComboBox::currentIndexChanged, this, [this] { showKeeps(); });
    showContainers();
    choose(container_, model_.state.exportContainer());
    showKeeps();
    const ExportRate& rate = model_.state.exportRate();
    choose(keep_, model_.state.exportMostBytes() ? ExportKeep::size
                  : rate.quality                 ? ExportKeep::quality
                  : rate.bitsPerSec              ? ExportKeep::rate
                                                 : ExportKeep::usual);
    showChoice();
}

ExportSheet::~ExportSheet() { estimating_.request_stop(); }

void ExportSheet::fill() {
    add(format_, tr("Video"), ExportFormat::video);
    add(format_, tr("Animated GIF"), ExportFormat::gif);
    add(format_, tr("Animated WebP"), ExportFormat::webp);
    add(format_, tr("Pictures, one for each frame"), ExportFormat::png);
    for (const VideoCodec codec : {VideoCodec::h264, VideoCodec::hevc, VideoCodec::vp9, VideoCodec::vp9Alpha,
             VideoCodec::av1, VideoCodec::proRes422HQ, VideoCodec::proRes4444})
        add(codec_, words(displayName(codec)), codec);
    add(resolution_, tr("As the Film"), ResolutionPreset::native);
    for (const ResolutionPreset size : {ResolutionPreset::p1080, ResolutionPreset::k4})
        add(resolution_, words(displayName(size)), size);
    using media::EncodingEffort;
    add(effort_, tr("Fast"), EncodingEffort::fast);
    add(effort_, tr("Balanced"), EncodingEffort::balanced);
    add(effort_, tr("Best"), EncodingEffort::best);
    quality_->setRange(0, 100);
    megabits_->setRange(0.1, 200);
    megabits_->setDecimals(1);
    megabits_->setSuffix(tr(" Mbit/s"));
    megabytes_->setRange(0.1, 10'000);
    megabytes_->setDecimals(1);
    megabytes_->setSuffix(tr(" MB"));
    const ExportRate& rate = model_.state.exportRate();
    const auto& mostBytes = model_.state.exportMostBytes();
    megabytes_->setValue(mostBytes ? double(*mostBytes) / 1e6 : usualMegabytes);
    quality_->setValue(rate.quality.value_or(usualQuality));
    megabits_->setValue(rate.bitsPerSec ? double(*rate.bitsPerSec) / 1e6 : usualMegabits);
    choose(format_, model_.state.exportFormat());
    choose(codec_, model_.state.exportVideoCodec());
    choose(resolution_, model_.state.exportResolution());
    choose(effort_, model_.state.exportEffort());
}

QFormLayout* ExportSheet::makeForm() {
    auto* form = new QFormLayout;
    form->setSpacing(space::small);
    form->setHorizontalSpacing(space::large);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("&Format"), format_);
    form->addRow(tr("&Codec"), codec_);
    form->addRow(tr("F&ile"), container_);
    form->addRow(tr("&Size"), resolution_);
    form->addRow(tr("&Effort"), effort_);
    effort_->setToolTip(tr("At the same rate: quicker, or better pictures."));
    auto* rate = new QLabel(tr("&Keep"));
    rate->setBuddy(keep_);
    form->addRow(rate, makeRateRow());
    return form;
}

QWidget* ExportSheet::makeRateRow() {
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(space::small);
    line->addWidget(keep_, 1);
    quality_->setAccessibleName(tr("Quality"));
    megabits_->setAccessibleName(tr("Bit Rate"));
    megabytes_->setAccessibleName(tr("At Most"));
    for (QWidget* field : std::initializer_list<QWidget*>{quality_, megabits_, megabytes_})
        line->addWidget(field);
    return row;
}

QWidget* ExportSheet::makeButtons() {
    auto* foot = new QWidget;
    auto* buttons = new QHBoxLayout(foot);
    buttons->setContentsMargins(0, 0, 0, 0);
    auto* cancel = new QPushButton(tr("Cancel"));
    auto* go = new QPushButton(tr("Export…"));
    go->setObjectName(QStringLiteral("go"));
    cancel->setAutoDefault(false);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(go);
    QObject::connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    QObject::connect(go, &QPushButton::clicked, this, [this] { askWhere(); });
    return foot;
}

void ExportSheet::showContainers() {
    const auto before = chosen<ExportContainer>(container_);
    const QSignalBlocker blocked(container_);
    container_->clear();
    for (const ExportContainer container : containersOf(chosen<VideoCodec>(codec_)))
        add(container_,
            container == ExportContainer::mp4   ? QStringLiteral("MP4")
            : container == ExportContainer::mov ? QStringLiteral("MOV")
                                                : QStringLiteral("WebM"),
            container);
    choose(container_, before);
    showChoice();
}

void ExportSheet::showKeeps() {
    const auto before = chosen<ExportKeep>(keep_);
    const QSignalBlocker blocked(keep_);
    keep_->clear();
    for (const ExportKeep keep : choice().keeps())
        add(keep_,
            keep == ExportKeep::usual     ? tr("The usual")
            : keep == ExportKeep::quality ? tr("Quality")
            : keep == ExportKeep::rate    ? tr("Bit Rate")
                                          : tr("At Most"),
            keep);
    choose(keep_, before);
    showChoice();
}

ExportChoice ExportSheet::choice() const {
    ExportChoice now{chosen<ExportFormat>(format_), chosen<VideoCodec>(codec_),
        chosen<ExportContainer>(container_), chosen<ResolutionPreset>(resolution_),
        chosen<media::EncodingEffort>(effort_), {}, {}};
    switch (chosen<ExportKeep>(keep_)) {
    case ExportKeep::usual: break;
    case ExportKeep::quality: now.rate.quality = quality_->value(); break;
    case ExportKeep::rate: now.rate.bitsPerSec = std::llround(megabits_->value() * 1e6); break;
    case ExportKeep::size: now.mostBytes = std::llround(megabytes_->value() * 1e6); break;
    }
    return now;
}

void ExportSheet::remember(const ExportChoice& now) {
    const Batch together;
    model_.state.exportFormat = now.format;
    model_.state.exportVideoCodec = now.codec;
    model_.state.exportContainer = now.container;
    model_.state.exportResolution = now.resolution;
    model_.state.exportEffort = now.effort;
    model_.state.exportRate = now.rate;
    model_.state.exportMostBytes = now.mostBytes;
}

void ExportSheet::showChoice() {
    const ExportChoice now = choice();
    const auto kept = chosen<ExportKeep>(keep_);
    codec_->setEnabled(now.isVideo());
    container_->setEnabled(now.isVideo() && container_->count() > 1);
    effort_->setEnabled(now.mayChooseEffort());
    keep_->setEnabled(keep_->count() > 1);
    quality_->setVisible(kept == ExportKeep::quality);
    megabits_->setVisible(kept == ExportKeep::rate);
    megabytes_->setVisible(kept == ExportKeep::size);
    const ExportFigures figures = figuresOf(model_.state.edited().spec, now);
    figures_->setText(tr("%1 × %2 pixels, %3 frames a second, %4 s, %5")
                          .arg(figures.size.width)
                          .arg(figures.size.height)
                          .arg(words(figures.fps.shown()))
                          .arg(figures.durationSec, 0, 'f', 1)
                          .arg(figures.hasSound ? tr("with sound") : tr("no sound")));
    estimate_->setText(tr("Estimating…"));
    estimating_.request_stop();
    lifeline_.cut();
    estimateTimer_ = studio_.main().after(estimatePauseSec, [this] { estimate(); });
}

// A stretch is exported as it would be, so the choice is the model's from here on.
void ExportSheet::estimate() {
    const ExportChoice now = choice();
    remember(now);
    CompositionRenderer::Config config = model_.exportConfig();
    config.output = "trial" + std::string(now.extension());
    const ExportFigures figures = figuresOf(model_.state.edited().spec, now);
    estimating_ = {};
    system::runThere(
        studio_.workers(), studio_.main(),
        [config = std::move(config), stop = estimating_.get_token()] {
            return ExportTrial::run(config, stop);
        },
        lifeline_.guard([this, figures](system::Outcome<ExportTrial::Outcome>& outcome) {
            try {
                showEstimate(outcome.value(), figures);
            } catch (const RenderStopped&) {
                // Another one is on its way.
            } catch (const std::exception& error) {
                estimate_->setText(words(error.what()));
            }
        }));
}

void ExportSheet::showEstimate(const ExportTrial::Outcome& outcome, const ExportFigures& figures) {
    const auto bytesWords = [](double bytes) {
        return QLocale().formattedDataSize(qint64(bytes), 1, QLocale::DataSizeSIFormat);
    };
    const QString time = ExportRow::timeWords(outcome.sec);
    if (outcome.bitsPerSec)
        return estimate_->setText(
            tr("At most %1, with %2 Mbit/s for the pictures, in about %3 on this machine")
                .arg(bytesWords(megabytes_->value() * 1e6))
                .arg(double(*outcome.bitsPerSec) / 1e6, 0, 'f', 2)
                .arg(time));
    if (outcome.look)
        return estimate_->setText(
            tr("About %1 at %2 × %3 pixels and %4 frames a second, in about %5 on this machine")
                .arg(bytesWords(outcome.bytes))
                .arg(outcome.look->size.width)
                .arg(outcome.look->size.height)
                .arg(words(outcome.look->fps.shown()), time));
    const double bytes = outcome.bytes + (figures.hasSound ? soundBytesPerSec * figures.durationSec : 0);
    estimate_->setText(tr("About %1, in about %2 on this machine").arg(bytesWords(bytes), time));
}

void ExportSheet::askWhere() {
    const ExportChoice now = choice();
    remember(now);
    const auto& bundle = model_.state.bundle();
    const QString name = words(exportFilename(bundle ? bundle->stem().string() : std::string(), now));
    const bool isFolder = now.format == ExportFormat::png;
    auto* dialog = new QFileDialog(this, isFolder ? tr("Export to a Folder") : tr("Export"),
        QStandardPaths::writableLocation(QStandardPaths::MoviesLocation),
        isFolder ? QString() : QStringLiteral("*") + words(now.extension()));
    dialog->setObjectName(QStringLiteral("exportTarget"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    if (!isFolder) dialog->setDefaultSuffix(words(now.extension().substr(1)));
    dialog->selectFile(name);
    QObject::connect(dialog, &QFileDialog::fileSelected, this, [this, now](const QString& file) {
        model_.exportTo(exportTarget(pathOf(file), now));
        accept();
    });
    dialog->open();
}

}   // namespace tavix::editor
