// SPDX-License-Identifier: GPL-3.0-or-later
// Views that stay in step with the recording.
#pragma once

#include "host/review/app/main_window/epoch_shades.h"

#include <QObject>

#include <cstdint>
#include <memory>
#include <string>

class QWidget;

namespace orvanta::review {

class ActionListener;
class Documents;
class OpenViews;
class WorkGui;

/// Lets the views follow montage, analyses and marks of bad channels, whoever changes them. GUI thread.
class Follower {
public:
    /// \param middle whose colours count
    /// All must outlive this.
    Follower(Documents& documents, OpenViews& views, const WorkGui& gui, const QWidget& middle);
    ~Follower();
    Follower(const Follower&) = delete;
    Follower& operator=(const Follower&) = delete;

    /// The document that is open now, before it has views.
    void Open();
    /// The document goes.
    void Close();
    /// Shows what changed without being told: to be called now and then.
    void Look();
    /// Computes what the views show once this event is done with: several changes, one computation.
    void QueueRefresh();
    /// Whether there is nothing that it would do.
    bool IsUpToDate() const;

private:
    AnalysisState State() const;
    void FollowAnalyses();
    void MontageChanged();

    Documents& documents_;
    OpenViews& views_;
    const WorkGui& gui_;
    const QWidget& middle_;
    std::unique_ptr<ActionListener> montageChanged_; ///< of the document
    std::string montage_;                            ///< that was told last
    AnalysisState analyses_;                         ///< what traces and maps show
    std::uint64_t followed_ = 0;                     ///< generation of the views that show them
    bool refreshQueued_ = false;
    QObject queue_; ///< takes its queued calls with it
};

} // namespace orvanta::review
