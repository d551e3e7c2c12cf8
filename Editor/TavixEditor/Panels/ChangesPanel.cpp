#include "TavixEditor/Panels/ChangesPanel.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Panels/NoteList.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavix::editor {

using namespace design;

namespace {

NoteRow noteOf(const ChangeRow& row) {
    NoteRow note;
    switch (row.kind) {
    case ChangeRow::Kind::added:
        note.icon = Icon::add;
        note.ink = &Theme::success;
        note.kind = ChangesPanel::tr("Added");
        break;
    case ChangeRow::Kind::removed:
        note.icon = Icon::trash;
        note.ink = &Theme::danger;
        note.kind = ChangesPanel::tr("Removed");
        break;
    case ChangeRow::Kind::moved:
        note.icon = Icon::redo;
        note.kind = ChangesPanel::tr("Moved");
        break;
    case ChangeRow::Kind::changed:
        note.icon = Icon::history;
        note.ink = &Theme::focus;
        note.kind = ChangesPanel::tr("Changed");
        break;
    }
    note.words = words(row.words);
    note.place = words(row.where);
    return note;
}

}   // namespace

ChangesPanel::ChangesPanel(Changes& changes, QWidget* parent)
    : QWidget(parent), changes_(changes),
      empty_(makeLabel(
          tr("What agents and other programs change in the file while it is open here is listed here."),
          TextSize::body, Tone::secondary)),
      list_(new NoteList), takeBack_(new QPushButton(tr("Take Back"))) {
    setObjectName(QStringLiteral("changesPanel"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    empty_->setWordWrap(true);
    empty_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    empty_->setContentsMargins(space::section, space::page, space::section, 0);
    column->addWidget(empty_, 1);
    list_->setAccessibleName(tr("Changes by other programs"));
    column->addWidget(list_, 1);
    column->addWidget(makeRule(Qt::Horizontal));
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(space::large, space::medium, space::large, space::medium);
    buttons->addStretch();
    buttons->addWidget(takeBack_);
    column->addLayout(buttons);
    takeBack_->setToolTip(tr("Takes back all that was changed together with what is chosen."));
    const auto go = [this] {
        if (const auto at = chosen()) changes_.goTo(at->step, at->row);
    };
    QObject::connect(list_, &QListWidget::itemClicked, this, go);
    QObject::connect(list_, &QListWidget::itemActivated, this, go);
    QObject::connect(takeBack_, &QPushButton::clicked, this, [this] {
        const auto at = chosen();
        changes_.takeBack(at ? at->step : 0, utf8Of(stepName()));
    });
    connections_.push_back(tavix::show([this] { showSteps(); }, changes_.steps));
}

void ChangesPanel::showEvent(QShowEvent*) { changes_.forgetNews(); }

std::optional<ChangesPanel::Chosen> ChangesPanel::chosen() const {
    const int row = list_->currentRow();
    return row >= 0 && std::size_t(row) < places_.size() ? places_[std::size_t(row)] : std::nullopt;
}

QString ChangesPanel::countWords(std::size_t changes) {
    return changes == 1 ? tr("1 change") : tr("%1 changes").arg(changes);
}

void ChangesPanel::showSteps() {
    const auto& steps = changes_.steps();
    QList<NoteRow> rows;
    places_.clear();
    for (std::size_t i = 0; i < steps.size(); ++i) {
        NoteRow heading;
        heading.words = tr("%1 at %2")
                            .arg(countWords(steps[i].rows.size()),
                                QLocale().toString(steps[i].at.time(), QLocale::ShortFormat));
        heading.isHeading = true;
        rows << heading;
        places_.push_back(std::nullopt);
        for (std::size_t k = 0; k < steps[i].rows.size(); ++k) {
            rows << noteOf(steps[i].rows[k]);
            places_.push_back(Chosen{i, k});
        }
    }
    list_->setRows(rows);
    list_->setVisible(!steps.empty());
    empty_->setVisible(steps.empty());
    takeBack_->setEnabled(!steps.empty());
}

}   // namespace tavix::editor
