#include "TavixEditor/Inspector/ColorPopup.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Inspector/ColorPlane.h"
#include "TavixEditor/Inspector/Colors.h"
#include "TavixEditor/Inspector/InspectorWords.h"
#include "TavixEditor/Inspector/Popup.h"
#include "TavixEditor/Inspector/ScreenPick.h"
#include "TavixEditor/Inspector/ScrubField.h"
#include "TavixEditor/Inspector/Swatch.h"

#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <utility>

namespace tavix::editor::ColorPopup {

using namespace design;

namespace {

constexpr int popupWidth = 288, swatchesInRow = 8;
constexpr std::size_t mostRows = 2;

// Of all windows, the latest first.
std::vector<RGBAColor>& recent() {
    static std::vector<RGBAColor> colors;
    return colors;
}

void remember(const RGBAColor& color) {
    std::erase(recent(), color);
    recent().insert(recent().begin(), color);
    recent().resize(std::min<std::size_t>(recent().size(), swatchesInRow));
}

// The colour as it is chosen. Hue and saturation are kept where the colour alone does not tell them, as in
// grey.
struct Chosen {
    double hue = 0, saturation = 0, brightness = 0, alpha = 1;

    void take(const QColor& color) {
        const QColor hsv = color.toHsv();
        if (hsv.hsvHueF() >= 0) hue = double(hsv.hsvHueF());
        if (hsv.valueF() > 0) saturation = double(hsv.hsvSaturationF());
        brightness = double(hsv.valueF());
        alpha = double(hsv.alphaF());
    }
    QColor color() const {
        return QColor::fromHsvF(float(hue), float(saturation), float(brightness), float(alpha));
    }
};

class Panel final : public QWidget {
public:
    Panel(QFrame* popup, const RGBAColor& color, const std::vector<RGBAColor>& inDocument, Events events)
        : QWidget(popup), popup_(popup), events_(std::move(events)) {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(space::small);
        makePlane(column);
        makeNumbers(column);
        column->addWidget(makePick());
        addColors(column, InspectorWords::tr("In the film"), inDocument);
        addColors(column, InspectorWords::tr("Recent"), recent());
        popup_->installEventFilter(this);
        chosen_.take(qColor(color));
        showColor();
    }

    void focusFirst() { plane_->setFocus(); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            end(false);
        if (event->type() == QEvent::Close) end(true);
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return)
            popup_->close();
        return QWidget::eventFilter(watched, event);
    }

private:
    void makePlane(QVBoxLayout* column) {
        plane_ = new ColorPlane;
        plane_->onChange = [this](double saturation, double brightness) {
            chosen_.saturation = saturation;
            chosen_.brightness = brightness;
            tell();
        };
        hue_ = new ColorSlider(InspectorWords::tr("Hue"), 360);
        hue_->colorAt = [](double hue) { return QColor::fromHsvF(float(hue), 1, 1); };
        alpha_ = new ColorSlider(InspectorWords::tr("Opacity"), 255);
        alpha_->colorAt = [this](double alpha) { return withAlpha(chosen_.color(), alpha); };
        connect(hue_, &QSlider::valueChanged, this, [this](int value) {
            chosen_.hue = value / 360.0;
            tell();
        });
        connect(alpha_, &QSlider::valueChanged, this, [this](int value) {
            chosen_.alpha = value / 255.0;
            tell();
        });
        for (QWidget* const part :
            {static_cast<QWidget*>(plane_), static_cast<QWidget*>(hue_), static_cast<QWidget*>(alpha_)})
            column->addWidget(part);
    }

    void makeNumbers(QVBoxLayout* column) {
        auto* grid = new QGridLayout;
        grid->setSpacing(space::tight);
        const std::array<const char*, 4> names{"R", "G", "B", "A"};
        for (std::size_t i = 0; i < numbers_.size(); ++i) {
            const bool isAlpha = i == 3;
            numbers_[i] = new ScrubField(QLatin1String(names[i]), {}, {0, isAlpha ? 100.0 : 255.0, 0}, 1);
            if (isAlpha) numbers_[i]->setToolTip(InspectorWords::tr("Opacity") + QStringLiteral(" %"));
            numbers_[i]->onChange = [this](double, bool) { takeNumbers(); };
            grid->addWidget(numbers_[i], 0, int(i));
        }
        numbers_[3]->setAccessibleName(InspectorWords::tr("Opacity"));
        hex_ = new QLineEdit;
        hex_->setFrame(false);
        hex_->setAccessibleName(InspectorWords::tr("Hexadecimal digits"));
        connect(hex_, &QLineEdit::editingFinished, this, [this] {
            if (const auto color = RGBAColor::fromHex(utf8Of(hex_->text())); color && hex_->isModified())
                take(qColor(*color));
            else
                showColor();
        });
        grid->addWidget(hex_, 1, 0, 1, 4);
        column->addLayout(grid);
    }

    QWidget* makePick() {
        auto* pick = new QPushButton(InspectorWords::tr("Pick from the Screen"));
        connect(pick, &QPushButton::clicked, this, [this] {
            isPicking_ = true;
            popup_->hide();   // it may be in front of what is wanted, and would take the click
            pickFromScreen(popup_->parentWidget(), [self = QPointer(this)](const auto& color) {
                if (!self) return;
                self->isPicking_ = false;
                self->popup_->show();
                if (color) self->take(*color);
            });
        });
        return pick;
    }

    void addColors(QVBoxLayout* column, const QString& title, const std::vector<RGBAColor>& colors) {
        if (colors.empty()) return;
        column->addWidget(makeLabel(title, TextSize::caption, Tone::secondary));
        auto* grid = new QGridLayout;
        grid->setSpacing(space::tight);
        const std::size_t count = std::min<std::size_t>(colors.size(), swatchesInRow * mostRows);
        for (std::size_t i = 0; i < count; ++i) {
            auto* swatch = new Swatch({29, 24});
            swatch->setColor(colors[i]);
            swatch->setAccessibleName(hexOf(colors[i]));
            swatch->setToolTip(hexOf(colors[i]));
            connect(
                swatch, &QAbstractButton::clicked, this, [this, swatch] { take(qColor(*swatch->color())); });
            grid->addWidget(swatch, int(i) / swatchesInRow, int(i) % swatchesInRow);
        }
        grid->setColumnStretch(swatchesInRow, 1);
        column->addLayout(grid);
    }

    void takeNumbers() {
        const auto byte = [this](std::size_t i) { return int(numbers_[i]->value()); };
        QColor color(byte(0), byte(1), byte(2));
        color.setAlphaF(float(numbers_[3]->value() / 100));
        take(color);
    }
    void take(const QColor& color) {
        chosen_.take(color);
        tell();
    }
    void tell() {
        showColor();
        hasChanged_ = true;
        if (events_.onChange) events_.onChange(rgba(chosen_.color()));
    }
    void showColor() {
        const QColor color = chosen_.color();
        const QSignalBlocker noHue(hue_), noAlpha(alpha_);
        plane_->setColor(chosen_.hue, chosen_.saturation, chosen_.brightness);
        hue_->setValue(qRound(chosen_.hue * 360));
        alpha_->setValue(qRound(chosen_.alpha * 255));
        alpha_->update();
        const std::array values{double(color.red()), double(color.green()), double(color.blue()),
            double(qRound(chosen_.alpha * 100))};
        for (std::size_t i = 0; i < numbers_.size(); ++i) numbers_[i]->setValue(values[i]);
        hex_->setText(hexOf(rgba(color)));
    }
    void end(bool isKept) {
        if (isPicking_ || !events_.onEnd) return;
        if (isKept && hasChanged_) remember(rgba(chosen_.color()));
        std::exchange(events_.onEnd, {})(isKept);
    }

    QFrame* popup_;
    Events events_;
    Chosen chosen_;
    ColorPlane* plane_ = nullptr;
    ColorSlider *hue_ = nullptr, *alpha_ = nullptr;
    std::array<ScrubField*, 4> numbers_{};
    QLineEdit* hex_ = nullptr;
    bool hasChanged_ = false, isPicking_ = false;
};

}   // namespace

void show(QWidget* parent, const QPoint& globally, const RGBAColor& color,
    const std::vector<RGBAColor>& inDocument, Events events) {
    QFrame* const popup = makePopup(parent, popupWidth);
    popup->setObjectName(QStringLiteral("colorPopup"));
    auto* panel = new Panel(popup, color, inDocument, std::move(events));
    popup->layout()->addWidget(panel);
    showPopup(popup, globally);
    panel->focusFirst();
}

}   // namespace tavix::editor::ColorPopup
