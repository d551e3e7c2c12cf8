#include "TavixEditor/Inspector/EasePopup.h"

#include "Editor/EditorDesignSystem/Style/Style.h"
#include "Editor/EditorDomain/Timeline/EasePreset.h"
#include "TavixEditor/Inspector/CurveEditor.h"
#include "TavixEditor/Inspector/Popup.h"
#include "TavixEditor/Inspector/ScrubField.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QGridLayout>

namespace tavix::editor {

using namespace design;

namespace {

QString words(const char* text) { return QCoreApplication::translate("EaseControl", text); }

constexpr double mostDampingShown = 1;

}   // namespace

EaseControl::EaseControl(QWidget* parent) : QWidget(parent) {
    names_ = new QComboBox;
    names_->setAccessibleName(words("Ease"));
    for (const EasePreset& preset : EasePreset::named())
        names_->addItem(QString::fromUtf8(preset.label.data(), qsizetype(preset.label.size())));
    names_->addItem(words("Spring"));
    names_->addItem(words("Custom"));
    plot_ = new CurveEditor;
    using namespace EaseEditing;
    response_ =
        new ScrubField(words("Response"), QStringLiteral("s"), {leastResponseSec, mostResponseSec, 2}, 0.05);
    damping_ = new ScrubField(words("Damping"), {}, {leastDamping, mostDampingShown, 2}, 0.05);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(space::small);
    grid->addWidget(names_, 0, 0, 1, 2);
    grid->addWidget(plot_, 1, 0, 1, 2);
    grid->addWidget(response_, 2, 0);
    grid->addWidget(damping_, 2, 1);
    connect(names_, &QComboBox::activated, this, [this](int index) {
        const auto& presets = EasePreset::named();
        if (index < int(presets.size()))
            tell(presets[std::size_t(index)].curve, false);
        else if (index == int(presets.size()))
            tell(SpringCurve{}, false);
        else
            tell(EaseEditing::asBezier(curve_), false);
    });
    plot_->onChange = [this](const TimingCurve& curve, bool isEditing) { tell(curve, isEditing); };
    const auto changeSpring = [this](double SpringCurve::*member) {
        return [this, member](double value, bool isEditing) {
            SpringCurve spring =
                std::holds_alternative<SpringCurve>(curve_) ? std::get<SpringCurve>(curve_) : SpringCurve{};
            spring.*member = value;
            tell(spring, isEditing);
        };
    };
    response_->onChange = changeSpring(&SpringCurve::responseSec);
    damping_->onChange = changeSpring(&SpringCurve::damping);
    setCurve(LinearCurve{});
}

void EaseControl::setCurve(const TimingCurve& curve) {
    curve_ = curve;
    plot_->setCurve(curve);
    const auto name = EasePreset::name(curve);
    const auto* const spring = std::get_if<SpringCurve>(&curve);
    const int count = int(EasePreset::named().size());
    int index = spring ? count : count + 1;
    for (int i = 0; name && i < count; ++i)
        if (EasePreset::named()[std::size_t(i)].label == *name) index = i;
    names_->setCurrentIndex(index);
    response_->setVisible(spring);
    damping_->setVisible(spring);
    if (!spring) return;
    response_->setValue(spring->responseSec);
    damping_->setValue(spring->damping);
}

void EaseControl::tell(const TimingCurve& curve, bool isEditing) {
    setCurve(curve);
    if (onChange) onChange(curve, isEditing);
}

void showEasePopup(QWidget* parent, const QPoint& globally, const TimingCurve& curve,
    std::function<void(const TimingCurve&, bool)> onChange) {
    QFrame* const popup = makePopup(parent, 264);
    auto* control = new EaseControl;
    control->setCurve(curve);
    control->onChange = std::move(onChange);
    popup->layout()->addWidget(control);
    showPopup(popup, globally);
}

}   // namespace tavix::editor
