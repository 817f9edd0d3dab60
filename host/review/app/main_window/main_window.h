// SPDX-License-Identifier: GPL-3.0-or-later
// What the views see of the application.
#pragma once

#include "host/chart_view/global_window.h"

#include <functional>

class QVBoxLayout;

namespace orvanta::review {

class NoticeStrip;
class ViewArea;

/// The middle of the application's window: notices, and the views or, without any, a page that invites to
/// open a recording. GUI thread.
class MainWindow final : public GlobalWindow {
public:
    /// What the window cannot do by itself.
    struct Around {
        GenericPlatform* platform = nullptr;
        SideBarManager* sideBar = nullptr;
        std::function<void(const std::string&)> showMessage;
        std::function<void(TheChild*)> showChild; ///< menu of the active child; null for none
        std::function<void(const XTime&)> goTo;
        std::function<void(const std::string&)> goToChannel;
        bool quiet = false; ///< nobody looks: computations go without progress and messages of batches
    };

    explicit MainWindow(Around around);
    ~MainWindow() override;

    ViewArea& Views() const { return *views_; }
    /// What was repaired in the recording, or why none is open.
    NoticeStrip& Repairs() const { return *repairs_; }
    /// Why something is missing.
    NoticeStrip& Problem() const { return *problem_; }
    /// What can be done next; below the views.
    NoticeStrip& Offer() const { return *offer_; }
    /// Takes over the page that is shown while no recording is open.
    void SetWelcome(QWidget& page);
    void ShowWelcome(bool show);

    GenericPlatform* GetPlatform() const override { return around_.platform; }
    std::string GetErrorStr() const override;
    bool IsQuiet() const override { return around_.quiet; }
    void SetMessageText(const std::string& text) override;
    SideBarManager& GetSideBar() override { return *around_.sideBar; }
    void SetActiveChild(TheChild* child) override;
    void PointAtTime(const XTime& time) override;
    void PointAtChannel(const std::string& name) override;

private:
    Around around_;
    QVBoxLayout* rows_;
    NoticeStrip* problem_;
    NoticeStrip* repairs_;
    NoticeStrip* offer_;
    ViewArea* views_;
    QWidget* welcome_ = nullptr;
};

} // namespace orvanta::review
