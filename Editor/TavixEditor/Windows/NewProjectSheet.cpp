#include "TavixEditor/Windows/NewProjectSheet.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/App/EngineProgram.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Windows/Thumbnails.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QStandardPaths>

namespace tavix::editor {

using namespace design;

namespace {

// The command tells what its templates are, in English.
[[maybe_unused]] const char* const knownTemplates[] = {
    QT_TRANSLATE_NOOP("Template", "A line, a promise and a date: moving type in the dark, with a chime."),
    QT_TRANSLATE_NOOP("Template", "One phone in space: its entrance, its turn with three numbers, a name."),
    QT_TRANSLATE_NOOP("Template", "Three features, each with its screen, its headline and its colour."),
    QT_TRANSLATE_NOOP("Template", "News in three steps: what it is, what is in it, what to do."),
    QT_TRANSLATE_NOOP("Template", "Words and a phone cut to music at 120 beats a minute."),
    QT_TRANSLATE_NOOP("Template", "A question, three screens and an answer, for a feed."),
};

QString templateWords(const QString& about) {
    return QCoreApplication::translate("Template", about.toUtf8().constData());
}

constexpr int pictureSide = 72;

}   // namespace

NewProjectSheet::NewProjectSheet(Studio& studio, QWidget* parent)
    : QDialog(parent), studio_(studio), templates_(new QListWidget), fault_(makeLabel({}, TextSize::body)),
      create_(new QPushButton(tr("Create…"))) {
    setObjectName(QStringLiteral("newProject"));
    setWindowTitle(tr("New from Template"));
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumSize(560, 560);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(space::section, space::section, space::section, space::large);
    column->setSpacing(space::medium);
    column->addWidget(makeLabel(tr("New from Template"), TextSize::title));
    templates_->setFrameShape(QFrame::NoFrame);
    templates_->setWordWrap(true);
    templates_->setIconSize({pictureSide, pictureSide});
    templates_->setAccessibleName(tr("Templates"));
    column->addWidget(templates_, 1);
    fault_->setWordWrap(true);
    fault_->setVisible(false);
    column->addWidget(fault_);
    auto* buttons = new QHBoxLayout;
    auto* cancel = new QPushButton(tr("Cancel"));
    create_->setDefault(true);
    create_->setEnabled(false);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(create_);
    column->addLayout(buttons);
    QObject::connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    QObject::connect(create_, &QPushButton::clicked, this, [this] { askWhere(); });
    // Not when it is activated: Return does that as well, and presses the button besides.
    QObject::connect(templates_, &QListWidget::itemDoubleClicked, this, [this] { askWhere(); });
    runEngine({QStringLiteral("new"), QStringLiteral("--list"), QStringLiteral("--json")}, this,
        [this](const EngineAnswer& answer) {
            if (answer.isDone) return list(answer.output);
            fault_->setText(answer.fault);
            fault_->setVisible(true);
        });
}

void NewProjectSheet::list(const QByteArray& json) {
    const QJsonArray entries = QJsonDocument::fromJson(json).array();
    for (const auto& value : entries) {
        const QJsonObject entry = value.toObject();
        const QString name = entry[QLatin1String("name")].toString();
        auto* item = new QListWidgetItem(QStringLiteral("%1 · %2 × %3\n%4")
                                             .arg(name)
                                             .arg(entry[QLatin1String("widthPx")].toInt())
                                             .arg(entry[QLatin1String("heightPx")].toInt())
                                             .arg(templateWords(entry[QLatin1String("about")].toString())),
            templates_);
        item->setData(Qt::UserRole, name);
        item->setSizeHint({0, pictureSide + space::small});
        showPicture(templates_->row(item), {});   // its room
    }
    templates_->setCurrentRow(0);
    create_->setEnabled(templates_->count() > 0);
    drawNext();
}

void NewProjectSheet::showPicture(int row, const QImage& picture) {
    const double scale = devicePixelRatioF();
    QPixmap square(QSize(pictureSide, pictureSide) * scale);
    square.setDevicePixelRatio(scale);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    QRectF room(0, 0, pictureSide, pictureSide);
    drawBox(painter, room, radius::field, Style::theme().pressed);
    if (!picture.isNull()) {
        QRectF target(QPointF(), QSizeF(picture.size()).scaled(room.size(), Qt::KeepAspectRatio));
        target.moveCenter(room.center());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(target, picture);
    }
    painter.end();
    QIcon icon(square);
    icon.addPixmap(square, QIcon::Selected);   // as it is
    templates_->item(row)->setIcon(icon);
}

// One after another: a project is made of the template, and its picture kept for the next time.
void NewProjectSheet::drawNext() {
    const int row = drawn_++;
    if (row >= templates_->count()) return;
    const QString name = templates_->item(row)->data(Qt::UserRole).toString();
    const int sidePx = int(pictureSide * devicePixelRatioF());
    const QString kept = QStringLiteral("%1/thumbnails/template-%2-%3-%4.png")
                             .arg(pathWords(studio_.folders.cache), name,
                                 QCoreApplication::applicationVersion(), QString::number(sidePx));
    if (const QImage picture(kept); !picture.isNull()) {
        showPicture(row, picture);
        return drawNext();
    }
    const QString bundle = trials_.filePath(name + QStringLiteral(".tavixcomp"));
    runEngine({QStringLiteral("new"), bundle, QStringLiteral("--template"), name}, this,
        [this, row, bundle, sidePx, kept](const EngineAnswer& answer) {
            if (!answer.isDone) return drawNext();   // choosing it tells why
            system::runThere(
                studio_.workers(), studio_.main(),
                [bundle, sidePx, kept, cache = studio_.folders.cache] {
                    QImage picture = thumbnailOf(pathOf(bundle), cache, sidePx);
                    if (!picture.isNull()) picture.save(kept);
                    return picture;
                },
                lifeline_.guard([this, row](system::Outcome<QImage>& outcome) {
                    if (!outcome.hasFailed()) showPicture(row, outcome.value());
                    drawNext();
                }));
        });
}

void NewProjectSheet::askWhere() {
    const QListWidgetItem* item = templates_->currentItem();
    if (!item) return;
    auto* dialog = new QFileDialog(this, tr("New Project"),
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), QStringLiteral("*.tavixcomp"));
    dialog->setObjectName(QStringLiteral("newProjectTarget"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("tavixcomp"));
    dialog->selectFile(item->data(Qt::UserRole).toString() + QStringLiteral(".tavixcomp"));
    QObject::connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& file) { make(file); });
    dialog->open();
}

void NewProjectSheet::make(const QString& file) {
    const QString name = templates_->currentItem()->data(Qt::UserRole).toString();
    create_->setEnabled(false);
    runEngine({QStringLiteral("new"), file, QStringLiteral("--template"), name}, this,
        [this, file](const EngineAnswer& answer) {
            create_->setEnabled(true);
            fault_->setVisible(!answer.isDone);
            fault_->setText(answer.fault);
            if (!answer.isDone) return;
            if (onMade) onMade(pathOf(file));
            accept();
        });
}

}   // namespace tavix::editor
