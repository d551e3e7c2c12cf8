#include "TavixEditor/Inspector/InspectorView.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDomain/Inspector/ColorsInUse.h"
#include "Editor/EditorDomain/Inspector/ContentSizes.h"
#include "Editor/EditorDomain/Inspector/InspectorEdit.h"
#include "Editor/EditorDomain/Inspector/KeyframeRows.h"
#include "Editor/EditorDomain/Timeline/TimelineScene.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Inspector/InspectorSectionView.h"
#include "TavixEditor/Inspector/MotionGallery.h"
#include "TavixEditor/Inspector/MusicStrip.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixLive/Operations/LayerOperations.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <set>
#include <string>
#include <vector>

namespace tavix::editor {

using namespace design;

namespace {

// Whether widgets made for the one inspection serve the other.
bool isLike(const Inspection& a, const Inspection& b) {
    if (a.sections.size() != b.sections.size()) return false;
    for (std::size_t i = 0; i < a.sections.size(); ++i) {
        const auto &one = a.sections[i], &other = b.sections[i];
        if (one.title != other.title || one.rows.size() != other.rows.size()) return false;
        for (std::size_t k = 0; k < one.rows.size(); ++k)
            if (!one.rows[k].isLike(other.rows[k])) return false;
    }
    return true;
}

// Whether both begin alike: layers of one kind do, with more or less below.
bool isSameKind(const Inspection& a, const Inspection& b) {
    const auto titleOf = [](const Inspection& of) {
        return of.sections.size() > 1 ? of.sections[1].title : std::string();
    };
    return titleOf(a) == titleOf(b);
}

class InspectorPanel final : public QWidget, private RowEdits {
    Q_DECLARE_TR_FUNCTIONS(InspectorPanel)
public:
    InspectorPanel(CompositionEditorModel& model, QWidget* parent, PlaySound play)
        : QWidget(parent), model_(model), play_(std::move(play)) {
        onGround(this, QPalette::Window);
        setMinimumWidth(264);
        title_ = makeLabel({}, TextSize::title);
        subtitle_ = makeLabel({}, TextSize::caption, Tone::secondary);
        complaint_ = makeLabel({}, TextSize::caption);
        complaint_->setWordWrap(true);
        complaint_->setForegroundRole(QPalette::BrightText);
        complaint_->hide();
        area_ = new QScrollArea;
        area_->setFrameShape(QFrame::NoFrame);
        area_->setWidgetResizable(true);
        area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(0, space::medium, 0, 0);
        column->setSpacing(space::tight);
        for (QLabel* const label : {title_, subtitle_, complaint_}) {
            label->setContentsMargins(space::large, 0, space::large, 0);
            column->addWidget(label);
        }
        column->addWidget(area_, 1);
        setAccessibleName(tr("Inspector"));
        connections_.push_back(watch([this] { refresh(); }, model_.state.edited, model_.state.isPlaying));
        // Values at the playhead stand still while the film plays: nobody reads them then.
        connections_.push_back(watch(
            [this] {
                if (!model_.state.isPlaying() && model_.state.edited().selection.layer) refresh();
            },
            model_.state.currentTime));
        refresh();
    }

private:
    void refresh() {
        Inspection now =
            inspection(model_.state.edited(), {model_.state.currentTime(), model_.state.bundle(), &sizes_});
        showTitle(now);
        if (!isLike(now, shown_) || sections_.empty()) {
            const bool isOfItsKind = isSameKind(now, shown_);
            shown_ = std::move(now);
            // A control may stand on the stack, in the middle of telling its change: it goes when it has
            // ended.
            rebuild(isOfItsKind);
            return;
        }
        for (std::size_t i = 0; i < sections_.size(); ++i) sections_[i]->show(now.sections[i]);
        shown_ = std::move(now);
    }

    // Names that authors gave stay as they are.
    void showTitle(const Inspection& now) {
        const EditState& state = model_.state.edited();
        const std::size_t layers = state.selection.layers().size();
        title_->setText(!state.selection.scene ? tr("Composition")
                        : layers > 1           ? tr("%1 layers").arg(layers)
                        : layers == 1          ? titleOf(state)
                                               : words(now.title));
        const bool isScene = state.selection.scene && layers == 0;
        subtitle_->setText(isScene && !now.subtitle.empty() && now.subtitle != now.title
                               ? tr("Scene %1").arg(*state.selection.scene)
                               : selectionWords(state));
        subtitle_->setVisible(!now.subtitle.empty());
    }

    static QString titleOf(const EditState& state) {
        const LayerPlace place = state.selection.layers().front();
        if (place.scene >= state.spec.scenes.size() ||
            place.layer >= state.spec.scenes[place.scene].layers.size())
            return {};
        const CompositionLayer& layer = state.spec.scenes[place.scene].layers[place.layer];
        return barWords(timeline::barLabel(layer), timeline::isLabelledByKind(layer));
    }

    // What is scrolled to stays from layer to layer of one kind; all else is read from its top.
    void rebuild(bool staysScrolled) {
        const int scrolled = staysScrolled ? area_->verticalScrollBar()->value() : 0;
        if (QWidget* const old = area_->takeWidget()) {
            old->hide();
            old->deleteLater();
        }
        sections_.clear();
        auto* content = onGround(new QWidget, QPalette::Window);
        auto* column = new QVBoxLayout(content);
        column->setContentsMargins(space::large, space::small, space::large, space::large);
        column->setSpacing(space::medium);
        for (const InspectorSection& section : shown_.sections) {
            auto* view = new InspectorSectionView(section, *this, content);
            view->show(section);
            sections_.push_back(view);
            column->addWidget(view);
            if (section.title == "Music" && !musicFileOf(model_).empty())
                column->addWidget(new MusicStrip(model_, content));
        }
        addActions(column);
        column->addStretch();
        area_->setWidget(content);
        area_->verticalScrollBar()->setValue(scrolled);
    }

    void addActions(QVBoxLayout* column) {
        const EditState& state = model_.state.edited();
        if (state.selection.layer) {
            const LayerPlace first = state.selection.layers().front();
            if (std::holds_alternative<DeviceContent>(
                    state.spec.scenes[first.scene].layers[first.layer].content)) {
                auto* motions = new QPushButton(tr("Choose Motion…"));
                connect(motions, &QPushButton::clicked, this,
                    [this] { showMotionGallery(model_, this, mapToGlobal(QPoint(0, 0))); });
                column->insertWidget(0, motions);
            }
            auto* add = new QPushButton(tr("Add Effect"));
            auto* menu = new QMenu(add);
            for (const std::string_view kind : effectKinds())
                menu->addAction(wordLabel(std::string(kind)), this, [this, kind] {
                    model_.update(tr("Add Effect").toStdString(), [&](EditState& changed) {
                        for (const LayerPlace& place : changed.selection.layers())
                            LayerOperations::addEffect(changed, place.scene, place.layer, kind);
                    });
                });
            add->setMenu(menu);
            column->addWidget(add);
        } else if (!state.selection.scene && state.spec.audio && state.spec.audio->music) {
            auto* analyze = new QPushButton(tr("Find Beats"));
            analyze->setToolTip(tr("Listens to the music, and sets the tempo and the first beat."));
            connect(analyze, &QPushButton::clicked, this, [this] { model_.analyzeMusicGrid(); });
            column->addWidget(analyze);
        }
    }

    // All edits come here. Until one is told with `isEditing` false they are one step.
    void edit(const InspectorRow& row, bool isEditing,
        const std::function<InspectorEdit::Complaint(EditState&)>& change) {
        const std::string step = tr("Change %1").arg(documentLabel(row.label)).toStdString();
        if (isEditing) model_.beginGesture(step);
        InspectorEdit::Complaint complaint;
        model_.update(step, [&](EditState& state) { complaint = change(state); });
        if (!isEditing) model_.endGesture();
        complaint_->setText(complaint ? words(*complaint) : QString());
        complaint_->setVisible(complaint.has_value());
        if (complaint) refresh();
    }

    void set(const InspectorRow& row, const Json& value, bool isEditing) override {
        if (row.keyed) return setKeyed(row, {}, value.doubleValue().value_or(0), isEditing);
        edit(row, isEditing,
            [path = row.path, value](EditState& state) { return InspectorEdit::set(state, path, value); });
    }
    void setPart(const InspectorRow& row, const std::string& part, double value, bool isEditing) override {
        if (row.keyed) return setKeyed(row, part, value, isEditing);
        if (row.path.tokens().front() == cornerKey) return setCorner(row, part, value, isEditing);
        edit(row, isEditing,
            [&](EditState& state) { return InspectorEdit::setPart(state, row.path, part, value); });
    }
    void giveUp() override { model_.cancelGesture(); }
    void setKeyed(const InspectorRow& row, const std::string& part, double value, bool isEditing) {
        edit(row, isEditing, [&](EditState& state) {
            KeyframeEdit::set(state, row, part, value, model_.state.currentTime());
            return std::nullopt;
        });
    }
    void setCorner(const InspectorRow& row, const std::string& axis, double value, bool isEditing) {
        edit(row, isEditing, [&](EditState& state) {
            const LayerPlace place = state.selection.layers().front();
            const CompositionLayer* const layer = state.layer(place.scene, place.layer);
            const auto size = layer ? sizes_.of(*layer, state.spec, model_.state.bundle()) : std::nullopt;
            if (size) InspectorEdit::setCorner(state, axis, value, axis == "x" ? size->width : size->height);
            return std::nullopt;
        });
    }
    void toggleKeyframe(const InspectorRow& row) override {
        const std::string step =
            (row.keyed->isHere ? tr("Delete Keyframe") : tr("Add Keyframe")).toStdString();
        model_.update(
            step, [&](EditState& state) { KeyframeEdit::toggle(state, row, model_.state.currentTime()); });
    }
    void seek(double toSec) override { model_.seek(toSec); }
    void play(const std::filesystem::path& sound) override {
        if (play_) play_(sound);
    }
    void append(const InspectorRow& row) override {
        edit(row, false, [&](EditState& state) {
            InspectorEdit::append(state, row.path, model_.state.currentTime());
            return std::nullopt;
        });
    }
    void setPresent(const InspectorRow& row, bool isThere) override {
        edit(row, false, [this, path = row.path, isThere](EditState& state) {
            const bool isSpace = path.text() == "/device/scene3D";
            for (const LayerPlace& place : isSpace ? state.selection.layers() : std::vector<LayerPlace>())
                DeviceOperations::setDevice3D(state, stash_, place.scene, place.layer, isThere);
            if (!isSpace) InspectorEdit::setPresent(state, path, isThere);
            return std::nullopt;
        });
    }
    void setAlternative(const InspectorRow& row, const std::string& tag) override {
        edit(row, false, [path = row.path, tag](EditState& state) {
            InspectorEdit::setAlternative(state, path, tag);
            return std::nullopt;
        });
    }
    void remove(const InspectorRow& row) override {
        edit(row, false, [path = row.path](EditState& state) { return InspectorEdit::remove(state, path); });
    }
    std::optional<std::filesystem::path> folder() const override { return model_.state.bundle(); }
    std::set<std::string>& foldedSections() override { return folded_; }
    std::vector<RGBAColor> colorsInUse() const override {
        return tavix::colorsInUse(model_.state.edited().spec);
    }

    CompositionEditorModel& model_;
    PlaySound play_;
    Inspection shown_;
    ContentSizes sizes_;
    QLabel *title_, *subtitle_, *complaint_;
    QScrollArea* area_;
    std::vector<InspectorSectionView*> sections_;
    std::set<std::string> folded_{"Frame"};   // they stay so from layer to layer
    DeviceOperations::Scene3DStash stash_;    // what flat devices were in space
    Connections connections_;
};

}   // namespace

QWidget* makeInspectorView(CompositionEditorModel& model, QWidget* parent, PlaySound play) {
    return new InspectorPanel(model, parent, std::move(play));
}

}   // namespace tavix::editor
