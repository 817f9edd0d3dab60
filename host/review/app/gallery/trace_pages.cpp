// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/gallery/trace_pages.h"

#include "host/review/app/events/event_editor.h"
#include "host/review/app/plain_window.h"
#include "host/review/app/traces/trace_view.h"

#include <QApplication>
#include <QMouseEvent>
#include <QSplitter>
#include <QVBoxLayout>

namespace orvanta::review {

namespace {

constexpr QSize kWide(1500, 860);

/// Tool bar and panes of the view.
class TraceFrame final : public PlainWindow {
public:
    explicit TraceFrame(GenericPlatform& platform) : platform_(platform) {}

    GenericPlatform* GetPlatform() const override { return &platform_; }

    void Take(TraceView& view) {
        auto* rows = new QVBoxLayout(this);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(0);
        rows->addWidget(&view.GetToolBar());
        rows->addWidget(&view.Panes(), 1);
        view.GetToolBar().show();
    }

private:
    GenericPlatform& platform_;
};

void SendMouse(QWidget& view, QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons,
               Qt::KeyboardModifiers modifiers) {
    QMouseEvent event(type, at, view.mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, modifiers);
    QApplication::sendEvent(&view, &event);
}

/// The demo with an artefact that the user marked, an analysis's epochs and the mouse over a trace.
void ShowTraces(const GallerySample& sample, const QSize& size, double start, const TakePicture& take) {
    EventEditor events(sample.recording);
    events.Add({"bad movement",
                EventClass::State,
                {XTime::FromSeconds(start + 6.2), XTime::FromSeconds(start + 7.4)}});
    events.Add(
        {"blink", EventClass::Spot, {XTime::FromSeconds(start + 3.1), XTime::FromSeconds(start + 3.1)}});
    TraceFrame window(sample.platform);
    auto* view = new TraceView(window, sample.recording, events);
    window.Take(*view);
    window.resize(size);
    window.show();
    view->GoTo(XTime::FromSeconds(start));
    std::vector<Shade> shades;
    for (int epoch = 0; epoch < 2; ++epoch) {
        const double begin = start + 1 + 2 * epoch;
        shades.push_back({{XTime::FromSeconds(begin), XTime::FromSeconds(begin + 2)}, 0x00B06020});
    }
    view->SetShades(std::move(shades));
    view->ShowChannel("O2");
    QApplication::processEvents();
    SendMouse(*view, QEvent::MouseMove, {view->width() / 2, view->height() / 2}, Qt::NoButton, {});
    take(window);
    view->Destroy();
    events.Undo();
    events.Undo();
}

} // namespace

std::vector<GalleryPage> MakeTracePages(const GallerySample& sample) {
    return {
        {"traces", [sample](const TakePicture& take) { ShowTraces(sample, kWide, 20, take); }},
        {"traces-small",
         [sample](const TakePicture& take) {
             ShowTraces(sample, {760, 420}, 40, take);
         }},
    };
}

} // namespace orvanta::review
