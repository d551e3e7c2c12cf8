// A model without threads, pictures or sound, for views that are tested by hand and eye.
#pragma once

#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixPlatform/System/ManualTime.h"

#include <QEvent>
#include <QObject>
#include <QPaintEvent>
#include <QRegion>

namespace tavix::editor::testing {

struct QuietStudio {
    system::ManualTime time;
    system::ManualExecutor main{time}, render{time}, workers{time};
    CompositionEditorModel model{{.executors = {main, render, workers}, .maker = nullptr}};

    // Ten seconds: two scenes that overlap by one, 100 points a second in a view of 1020.
    QuietStudio() {
        CompositionSpec spec;
        spec.output = {1080, 1920, 30};
        CompositionScene first, second;
        first.durationSec = 6;
        first.transition.emplace().durationSec = 1;
        first.layers = {text(0, std::nullopt, "Back"), text(1, 2, "Middle"), text(3.5, 1, "Front")};
        second.durationSec = 5;
        second.layers = {text(0.5, 3, "Later")};
        spec.scenes = {first, second};
        model.loadInMemory(spec, "/nowhere");
        model.state.outputDuration = 10;
    }
    static CompositionLayer text(double fromSec, std::optional<double> durationSec, const char* words) {
        CompositionLayer layer;
        layer.fromSec = fromSec;
        layer.durationSec = durationSec;
        TextContent content;
        content.text = words;
        layer.content = content;
        return layer;
    }
    const CompositionLayer& layer(std::size_t index) const {
        return model.state.edited().spec.scenes[0].layers[index];
    }
};

// What of a widget is painted.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QObject* watched) { watched->installEventFilter(this); }
    int count = 0;
    QRegion painted;
    int area() const {
        int sum = 0;
        for (const QRect& rect : painted) sum += rect.width() * rect.height();
        return sum;
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++count;
            painted += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

}   // namespace tavix::editor::testing
