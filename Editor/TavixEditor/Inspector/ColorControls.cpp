// Colours with their opacity, gradients, and what fills a background.
#include "TavixEditor/Inspector/Colors.h"
#include "TavixEditor/Inspector/RowControl.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDomain/Inspector/Themes.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Theme/BackgroundCatalog.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Inspector/ColorPopup.h"
#include "TavixEditor/Inspector/GradientBar.h"
#include "TavixEditor/Inspector/InspectorWords.h"
#include "TavixEditor/Inspector/ScrubField.h"
#include "TavixEditor/Inspector/Swatch.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace tavix::editor {

using namespace design;

namespace {

// A swatch that opens a chooser, and the colour in digits.
class ColorField final : public QWidget {
public:
    ColorField(const QString& name, RowEdits& edits, QWidget* parent)
        : QWidget(parent), edits_(edits), swatch_(new Swatch({36, height::field}, this)),
          hex_(new QLineEdit(this)) {
        auto* line = new QHBoxLayout(this);
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(space::small);
        line->addWidget(swatch_);
        line->addWidget(hex_, 1);
        swatch_->setAccessibleName(name);
        swatch_->setToolTip(InspectorWords::tr("Choose a color, here or anywhere on the screen"));
        hex_->setFrame(false);
        hex_->setAccessibleName(InspectorWords::tr("%1 in hexadecimal digits").arg(name));
        connect(swatch_, &QAbstractButton::clicked, this, [this] { choose(); });
        connect(hex_, &QLineEdit::editingFinished, this, [this] {
            if (!hex_->isModified()) return;
            hex_->setModified(false);
            const auto color = RGBAColor::fromHex(utf8Of(hex_->text()));
            if (color)
                tell(*color, false);
            else
                setColor(color_);
        });
    }

    void setColor(const std::optional<RGBAColor>& color, const QString& otherwise = {}) {
        color_ = color;
        swatch_->setColor(color);
        hex_->setPlaceholderText(otherwise);
        if (!hex_->hasFocus() || !hex_->isModified()) hex_->setText(color ? hexOf(*color) : QString());
    }
    std::function<void(const RGBAColor& color, bool isEditing)> onChange;

private:
    void tell(const RGBAColor& color, bool isEditing) {
        setColor(color);
        if (onChange) onChange(color, isEditing);
    }
    void choose() {
        ColorPopup::Events events;
        events.onChange = [this](const RGBAColor& color) { tell(color, true); };
        events.onEnd = [this, before = color_](bool isKept) {
            if (color_ == before) return edits_.giveUp();
            if (isKept) return tell(*color_, false);
            setColor(before);
            edits_.giveUp();
        };
        const QPoint corner = swatch_->mapToGlobal(QPoint(0, height() + space::tight));
        ColorPopup::show(
            this, corner, color_.value_or(RGBAColor::white), edits_.colorsInUse(), std::move(events));
    }

    RowEdits& edits_;
    Swatch* swatch_;
    QLineEdit* hex_;
    std::optional<RGBAColor> color_;
};

// A fill in JSON: a shape's and a background's have the same form, but for pictures.
struct Fill {
    enum class Kind { color, gradient, picture } kind = Kind::color;
    RGBAColor color = RGBAColor::white;
    LinearGradient gradient = LinearGradient::standard();
    std::string picture;
};

Fill fillIn(const Json& json) {
    Fill fill;
    const BackgroundFill read = json.isNull() || !json.find("kind") ? BackgroundFill(RGBAColor::white)
                                                                    : decodeValue<BackgroundFill>(json);
    if (const auto* color = std::get_if<RGBAColor>(&read)) fill.color = *color;
    if (const auto* gradient = std::get_if<LinearGradient>(&read)) {
        fill.kind = Fill::Kind::gradient;
        fill.gradient = *gradient;
    }
    if (const auto* image = std::get_if<BackgroundImage>(&read)) {
        fill.kind = Fill::Kind::picture;
        fill.picture = image->bundledID.value_or("");
    }
    return fill;
}

Json jsonOf(const BackgroundFill& fill) { return writeValue(typeOf<BackgroundFill>(), &fill); }

class FillEditor final : public QWidget {
public:
    FillEditor(const InspectorRow& row, RowEdits& edits, QWidget* parent)
        : QWidget(parent), row_(row), edits_(edits) {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(space::small);
        kinds_ = new QComboBox;
        kinds_->setAccessibleName(documentLabel(row.label));
        kinds_->addItem(InspectorWords::tr("Color"));
        kinds_->addItem(InspectorWords::tr("Gradient"));
        // A shape has no pictures; its rest value says which this is.
        isBackground_ = row.path.tokens().back() != "fill" || row.path.tokens().size() == 1;
        if (isBackground_) {
            kinds_->addItem(InspectorWords::tr("Picture"));
            themes_ = new QComboBox;
            themes_->setAccessibleName(InspectorWords::tr("Theme"));
            for (const BasicCompositionTheme theme : allThemes) themes_->addItem(words(label(theme)));
            themes_->setPlaceholderText(InspectorWords::tr("Hand-made"));
        }
        color_ = new ColorField(documentLabel(row.label), edits, this);
        bar_ = new GradientBar;
        angle_ = new ScrubField(InspectorWords::tr("Angle"), QStringLiteral("°"), {-360, 360, 0, 1.0}, 5);
        pictures_ = new QComboBox;
        pictures_->setAccessibleName(InspectorWords::tr("Picture"));
        for (const BundledBackground& each : BackgroundCatalog::all)
            pictures_->addItem(words(each.displayName), words(each.id));
        if (themes_) column->addWidget(themes_);
        for (QWidget* const part :
            {static_cast<QWidget*>(kinds_), static_cast<QWidget*>(bar_), static_cast<QWidget*>(color_),
                static_cast<QWidget*>(angle_), static_cast<QWidget*>(pictures_)})
            column->addWidget(part);
        connectParts();
    }

    void show(const InspectorRow& row) {
        row_ = row;
        const Fill fill = fillIn(row.value);
        const bool isGradient = fill.kind == Fill::Kind::gradient;
        kinds_->setCurrentIndex(row.isMixed ? -1 : int(fill.kind));
        kinds_->setPlaceholderText(mixedWords());
        if (themes_) {
            CompositionSpec spec;
            if (!row.value.isNull()) spec.background = decodeValue<BackgroundFill>(row.value);
            const auto theme = selectedTheme(spec);
            themes_->setCurrentIndex(theme ? int(*theme) : -1);
        }
        bar_->setVisible(isGradient);
        angle_->setVisible(isGradient);
        color_->setVisible(fill.kind != Fill::Kind::picture);
        pictures_->setVisible(fill.kind == Fill::Kind::picture);
        if (isGradient) {
            bar_->setGradient(fill.gradient);
            angle_->setValue(fill.gradient.angleDegrees);
            showStop();
        } else {
            color_->setColor(fill.color);
        }
        pictures_->setCurrentIndex(pictures_->findData(words(fill.picture)));
    }

private:
    void connectParts() {
        connect(kinds_, &QComboBox::activated, this, [this](int index) {
            const Fill before = fillIn(row_.value);
            if (index == int(before.kind)) return;
            if (index == int(Fill::Kind::color))
                tell(before.kind == Fill::Kind::gradient && !before.gradient.stops.empty()
                         ? before.gradient.stops.front().color
                         : RGBAColor::white,
                    false);
            if (index == int(Fill::Kind::gradient)) {
                QColor end = qColor(before.color);
                end.setHsvF(end.hsvHueF(), end.hsvSaturationF(), end.valueF() * 0.4f, end.alphaF());
                tell(LinearGradient{{{before.color, 0}, {rgba(end), 1}}, 0}, false);
            }
            if (index == int(Fill::Kind::picture))
                tell(BackgroundImage::bundled(std::string(BackgroundCatalog::standard.id)), false);
        });
        if (themes_)
            connect(themes_, &QComboBox::activated, this,
                [this](int index) { tell(fillOf(allThemes[std::size_t(index)]), false); });
        color_->onChange = [this](const RGBAColor& color, bool isEditing) {
            if (fillIn(row_.value).kind == Fill::Kind::gradient)
                bar_->setChosenColor(color, isEditing);
            else
                tell(color, isEditing);
        };
        bar_->onChange = [this](
                             const LinearGradient& gradient, bool isEditing) { tell(gradient, isEditing); };
        bar_->onChoose = [this] { showStop(); };
        angle_->onChange = [this](double value, bool isEditing) {
            LinearGradient gradient = bar_->gradient();
            gradient.angleDegrees = value;
            tell(gradient, isEditing);
        };
        connect(pictures_, &QComboBox::activated, this, [this](int index) {
            tell(BackgroundImage::bundled(utf8Of(pictures_->itemData(index).toString())), false);
        });
    }
    void showStop() {
        const auto& stops = bar_->gradient().stops;
        color_->setColor(
            bar_->chosen() < stops.size() ? std::optional(stops[bar_->chosen()].color) : std::nullopt);
    }
    void tell(const BackgroundFill& fill, bool isEditing) {
        // A gradient alone is written without its kind.
        const bool isGradientAlone = row_.value.find("stops") != nullptr;
        if (isGradientAlone) {
            if (const auto* gradient = std::get_if<LinearGradient>(&fill))
                edits_.set(row_, writeValue(typeOf<LinearGradient>(), gradient), isEditing);
            return;
        }
        edits_.set(row_, jsonOf(fill), isEditing);
    }

    InspectorRow row_;
    RowEdits& edits_;
    bool isBackground_ = false;
    QComboBox *kinds_, *themes_ = nullptr, *pictures_;
    ColorField* color_;
    GradientBar* bar_;
    ScrubField* angle_;
};

}   // namespace

QColor qColor(const RGBAColor& color) {
    const auto channel = [](double value) { return float(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(channel(color.r), channel(color.g), channel(color.b), channel(color.a));
}

RGBAColor rgba(const QColor& color) {
    const QColor rgb = color.toRgb();
    // Eight bits a channel are what was chosen; more digits would only be noise in the document.
    const auto channel = [](int value) { return std::round(value / 255.0 * 10000) / 10000; };
    return {channel(rgb.red()), channel(rgb.green()), channel(rgb.blue()), channel(rgb.alpha())};
}

QString hexOf(const RGBAColor& color) {
    const QColor shown = qColor(color);
    const QString hex = shown.name(QColor::HexRgb);
    return shown.alpha() == 255 ? hex
                                : hex + QStringLiteral("%1").arg(shown.alpha(), 2, 16, QLatin1Char('0'));
}

void paintChecks(QPainter& painter, const QRectF& rect, double radius) {
    constexpr int size = 5;
    QPainterPath outline;
    outline.addRoundedRect(rect, radius, radius);
    painter.save();
    painter.setClipPath(outline, Qt::IntersectClip);
    painter.fillRect(rect, Qt::white);
    for (int y = 0; y * size < rect.height(); ++y)
        for (int x = y % 2; x * size < rect.width(); x += 2)
            painter.fillRect(
                QRectF(rect.left() + x * size, rect.top() + y * size, size, size), QColor(0xc4, 0xc6, 0xcc));
    painter.restore();
}

RowControl makeColorControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* field = new ColorField(documentLabel(row.label), edits, parent);
    const auto kept = std::make_shared<InspectorRow>(row);
    field->onChange = [=, &edits](const RGBAColor& color, bool isEditing) {
        edits.set(*kept, writeValue(typeOf<RGBAColor>(), &color), isEditing);
    };
    return {field, [=](const InspectorRow& now) {
                *kept = now;
                if (now.isMixed || now.value.isNull())
                    return field->setColor(
                        std::nullopt, now.isMixed ? mixedWords() : InspectorWords::tr("None"));
                field->setColor(decodeValue<RGBAColor>(now.value));
            }};
}

RowControl makeFillControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* editor = new FillEditor(row, edits, parent);
    return {editor, [=](const InspectorRow& now) { editor->show(now); }, true};
}

}   // namespace tavix::editor
