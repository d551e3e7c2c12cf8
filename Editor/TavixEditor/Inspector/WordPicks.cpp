#include "TavixEditor/Inspector/WordPicks.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"

#include <QAbstractButton>
#include <QPainter>
#include <QResizeEvent>

#include <functional>
#include <vector>

namespace tavix::editor {

using namespace design;

namespace {

constexpr int wordHeight = 22;

class PickedWord final : public QAbstractButton {
public:
    PickedWord(const QString& word, QWidget* parent) : QAbstractButton(parent) {
        setText(word);
        setAccessibleName(word);
        setCheckable(true);
        setFocusPolicy(Qt::TabFocus);
        setFont(fontOf(TextSize::caption));
        resize(fontMetrics().horizontalAdvance(word) + 2 * space::small, wordHeight);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Theme& theme = Style::theme();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        drawBox(painter, rect(), radius::field, isChecked() ? theme.accent : theme.field,
            hasFocus()     ? theme.focus
            : underMouse() ? theme.secondary
                           : theme.hairline,
            hasFocus() ? 1.5 : 1);
        painter.setPen(isChecked() ? theme.onAccent : theme.text);
        painter.drawText(rect(), Qt::AlignCenter, text());
    }
    void enterEvent(QEnterEvent*) override { update(); }
    void leaveEvent(QEvent*) override { update(); }
};

class WordPicks final : public QWidget {
public:
    explicit WordPicks(QWidget* parent) : QWidget(parent) {
        QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
    }
    std::function<void(const JsonArray& picked)> onPick;

    void show(const InspectorRow& row) {
        if (row.words != words_) {
            words_ = row.words;
            for (PickedWord* const button : buttons_) button->deleteLater();
            buttons_.clear();
            for (const std::string& word : words_) {
                auto* button = new PickedWord(words(word), this);
                connect(button, &QAbstractButton::clicked, this, [this] { tell(); });
                button->show();
                buttons_.push_back(button);
            }
            arrange(width(), true);
            updateGeometry();
        }
        for (PickedWord* const button : buttons_) button->setChecked(false);
        if (const JsonArray* const picked = row.value.array())
            for (const Json& index : *picked)
                if (const auto at = index.integerValue();
                    at && *at >= 0 && *at < std::int64_t(buttons_.size()))
                    buttons_[std::size_t(*at)]->setChecked(true);
    }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return arrange(width, false); }
    QSize sizeHint() const override { return {180, arrange(180, false)}; }
    QSize minimumSizeHint() const override { return {60, wordHeight}; }

protected:
    void resizeEvent(QResizeEvent* event) override { arrange(event->size().width(), true); }

private:
    int arrange(int width, bool isMoving) const {
        int x = 0, y = 0;
        for (PickedWord* const button : buttons_) {
            if (x > 0 && x + button->width() > width) {
                x = 0;
                y += wordHeight + space::tight;
            }
            if (isMoving) button->move(x, y);
            x += button->width() + space::tight;
        }
        return y + wordHeight;
    }
    void tell() {
        JsonArray picked;
        for (std::size_t i = 0; i < buttons_.size(); ++i)
            if (buttons_[i]->isChecked()) picked.push_back(Json(std::int64_t(i)));
        if (onPick) onPick(picked);
    }

    std::vector<std::string> words_;
    std::vector<PickedWord*> buttons_;
};

}   // namespace

RowControl makePicksControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* picks = new WordPicks(parent);
    picks->setAccessibleName(documentLabel(row.label));
    picks->onPick = [path = row, &edits](const JsonArray& picked) { edits.set(path, Json(picked), false); };
    return {picks, [picks](const InspectorRow& now) { picks->show(now); }, true};
}

}   // namespace tavix::editor
