// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/gallery/trace_pages.h"

#include "host/review/app/events/event_editor.h"
#include "host/review/app/gallery/view_frame.h"
#include "host/review/app/main_window/settling.h"
#include "host/review/app/traces/channels_dialog.h"
#include "host/review/app/traces/go_to_dialog.h"
#include "host/review/app/traces/trace_view.h"
#include "host/signal_base/recording.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

namespace orvanta::review {

namespace {

constexpr QSize kWide(1500, 860);

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
    ViewFrame window(sample.platform);
    auto* view = new TraceView(window, sample.recording, events);
    window.Take(*view);
    window.resize(size);
    window.show();
    view->GoTo(XTime::FromSeconds(start));
    std::vector<Shade> shades;
    for (int epoch = 0; epoch < 2; ++epoch) {
        const double begin = start + 1 + 2 * epoch;
        shades.push_back({{XTime::FromSeconds(begin), XTime::FromSeconds(begin + 2)},
                          epoch == 0 ? 0x00B06020U : 0x002060B0U,
                          epoch == 0 ? "Main analysis: Eyes open" : "Secondary analysis: Eyes closed",
                          epoch != 0});
    }
    view->SetShades(std::move(shades));
    view->ShowChannel("O2");
    LetItSettle([view] { return view->IsComplete(); });
    SendMouse(*view, QEvent::MouseMove, {view->width() / 2, view->height() / 2}, Qt::NoButton, {});
    take(window);
    view->Destroy();
    events.Undo();
    events.Undo();
}

void ShowGoTo(const GallerySample& sample, const TakePicture& take) {
    const signal::Recording& recording = *sample.recording.GetRecording();
    GoToDialog dialog(nullptr, {20, recording.Time().Duration(), recording.Data().start});
    dialog.show();
    if (auto* edit = dialog.findChild<QLineEdit*>("Edit")) {
        edit->setText("08:00:00");
    }
    if (auto* buttons = dialog.findChild<QDialogButtonBox*>("Buttons")) {
        buttons->button(QDialogButtonBox::Ok)->click();
    }
    take(dialog);
}

void ShowChannels(const GallerySample& sample, const TakePicture& take) {
    std::vector<TraceChannel> channels = ChannelsOf(sample.recording);
    channels.at(2).bad = true;
    ChannelsDialog dialog(nullptr, channels, {channels.at(1).name});
    take(dialog);
}

} // namespace

std::vector<GalleryPage> MakeTracePages(const GallerySample& sample) {
    return {
        {"traces", [sample](const TakePicture& take) { ShowTraces(sample, kWide, 20, take); }},
        {"traces-go-to", [sample](const TakePicture& take) { ShowGoTo(sample, take); }},
        {"traces-channels", [sample](const TakePicture& take) { ShowChannels(sample, take); }},
        {"traces-small",
         [sample](const TakePicture& take) {
             ShowTraces(sample, {760, 420}, 40, take);
         }},
    };
}

} // namespace orvanta::review
