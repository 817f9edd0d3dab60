// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/log_step.h"
#include "host/review/app/traces/trace_texts.h"
#include "host/review/app/traces/trace_view_impl.h"
#include "host/toolkit/event_guard.h"

#include <QEvent>

#include <utility>

namespace orvanta::review {

namespace {

constexpr const char* kName = "Traces";

ChildResInfo Resources() {
    RegisterTraceMenu();
    return {kCmViewTraces, 0, kTraceMenu, 0, 0};
}

} // namespace

constinit const owl::TResponseTable TraceView::__entries = {
    owl::Command<&TraceView::CmTraces>(kCmFirstTraceCommand, kCmLastTraceCommand),
    owl::CommandEnabler<&TraceView::CeTraces>(kCmFirstTraceCommand, kCmLastTraceCommand),
    owl::Message<&TraceView::EvPageLength>(kMsgPageLength),
    owl::Message<&TraceView::EvGain>(kMsgGain),
    owl::Message<&TraceView::EvLowCut>(kMsgLowCut),
    owl::Message<&TraceView::EvHighCut>(kMsgHighCut),
    owl::Message<&TraceView::EvNotch>(kMsgNotch),
    owl::Message<&TraceView::EvMontage>(kMsgMontage),
    owl::Message<&TraceView::EvGrown>(kMsgGrown),
};

const owl::TResponseEntry* TraceView::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<TheChild>(__entries, *this, key);
}

TraceView::TraceView(GlobalWindow& window, EEGFileInfoType& recording, EventEditor& events)
    : TheChild(window, kName, PModule::Named("Orvanta"), Resources()),
      impl_(std::make_unique<Impl>(*this, recording, events)) {
    setAccessibleName(QString::fromStdString(TraceText("traces", "Traces")));
    setAccessibleDescription(QString::fromStdString(TraceText(
        "tracesAre", "Traces of the recording. Page Up and Page Down turn pages, G goes to a time.")));
    setMinimumSize(120, 80);
}

TraceView::~TraceView() = default;

TraceView::Impl::Impl(TraceView& owner, EEGFileInfoType& file, EventEditor& eventEditor)
    : view(owner), recording(file), events(eventEditor), model(file),
      montage(file.GetTraceInfo()->GetMtg().GetName()),
      montageAction("Traces", file.GetMontageFlag(), [this] { MontageChanged(); }),
      positionAction("Traces", file.GetTraceCursor()->GetPositionFlag(), [this] { FollowCursor(); }),
      eventsAction("Traces", eventEditor.GetChangedFlag(), [this] {
          selectedEvent.reset();
          view.Invalidate();
      }) {
    QObject::connect(&player, &QTimer::timeout, &view, [this] { owl::RunGuarded([this] { PlayOn(); }); });
    model.Store().SetGrown([this] {
        if (!grownQueued.exchange(true)) {
            view.PostMessage(kMsgGrown); // from the thread in the background
        }
    });
}

void TraceView::SetupWindow() {
    impl_->scrollBar = new QScrollBar(Qt::Vertical, this);
    impl_->scrollBar->setAccessibleName(QString::fromStdString(TraceText("channelList", "Channels")));
    impl_->scrollBar->setFocusPolicy(Qt::NoFocus);
    impl_->scrollBar->hide();
    connect(impl_->scrollBar, &QScrollBar::valueChanged, this, [this](int line) {
        if (line != impl_->model.State().window.firstLine) {
            impl_->ScrollLines(line - impl_->model.State().window.firstLine);
        }
    });
    impl_->overlay = new TraceOverlay(this);
    TheChild::SetupWindow();
    impl_->FollowCursor();
    impl_->Refresh();
}

void TraceView::Destroy(int retVal) {
    if (IsCreated()) {
        impl_->Play(false);
        StoreUserSettings();
    }
    TheChild::Destroy(retVal);
}

void TraceView::StoreUserSettings() const {
    TheChild::StoreUserSettings();
    impl_->Store();
}

void TraceView::LoadUserSettings() {
    TheChild::LoadUserSettings();
    impl_->Load();
}

void TraceView::CreateGadgets() {
    TheChild::CreateGadgets();
    impl_->boxes.Create(GetToolBar());
    impl_->boxes.ShowMontages(*impl_->recording.GetMontageList(),
                              impl_->recording.GetTraceInfo()->GetMtg().GetName());
}

void TraceView::Draw(owl::TDC& dc, bool /*erase*/, owl::TRect& /*rect*/) {
    impl_->Paint(dc);
    if (!std::exchange(impl_->drawn, true)) {
        LogStep("first page of " + impl_->recording.GetFileNameText());
    }
}

void TraceView::GoTo(const XTime& time) {
    impl_->Show(Showing(impl_->model.State().window, time.Seconds(), impl_->model.Total()));
}

XTimeInterval TraceView::GetPage() const {
    const TraceWindow& window = impl_->model.State().window;
    return {XTime::FromSeconds(window.start), XTime::FromSeconds(window.start + window.duration)};
}

void TraceView::ShowChannel(const std::string& name) {
    if (const std::optional<std::size_t> line = impl_->model.FindShown(name)) {
        impl_->Select(impl_->model.Channels()[impl_->model.Shown()[*line]].name);
        impl_->BringIntoView(*line);
    }
}

void TraceView::SetShades(std::vector<Shade> shades) {
    if (shades != impl_->shades) {
        impl_->shades = std::move(shades);
        Invalidate();
    }
}

void TraceView::CmTraces(unsigned id) {
    impl_->Run(id);
}

void TraceView::EvPageLength(WPARAM index, LPARAM) {
    impl_->SetDuration(impl_->boxes.PageLengthAt(index), 0);
}

void TraceView::EvGain(WPARAM index, LPARAM) {
    impl_->SetGain(impl_->boxes.GainAt(index));
}

void TraceView::EvLowCut(WPARAM index, LPARAM) {
    TraceFilter filter = impl_->model.State().filter;
    filter.lowCut = impl_->boxes.LowCutAt(index);
    impl_->SetFilter(filter);
}

void TraceView::EvHighCut(WPARAM index, LPARAM) {
    TraceFilter filter = impl_->model.State().filter;
    filter.highCut = impl_->boxes.HighCutAt(index);
    impl_->SetFilter(filter);
}

void TraceView::EvNotch(WPARAM index, LPARAM) {
    TraceFilter filter = impl_->model.State().filter;
    filter.notch = impl_->boxes.NotchAt(index);
    impl_->SetFilter(filter);
}

void TraceView::EvMontage(WPARAM index, LPARAM) {
    impl_->recording.ChangeMntg(index, true);
}

bool TraceView::IsComplete() const {
    return impl_->model.IsOverviewComplete();
}

void TraceView::EvGrown(WPARAM, LPARAM) {
    impl_->grownQueued = false;
    impl_->model.ForgetOverview();
    Invalidate();
}

} // namespace orvanta::review
