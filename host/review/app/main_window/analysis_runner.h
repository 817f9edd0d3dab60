// SPDX-License-Identifier: GPL-3.0-or-later
// Analyses of the open recording, as the user asks for them.
#pragma once

#include "host/review/app/main_window/view_area.h"

#include <functional>

class GenericPlatform;
class QWidget;
class SpectraMacro;

namespace orvanta::review {

class Documents;
class ModuleBridge;
class OpenViews;
class WorkGui;

/// Makes and computes them, and opens the views that show them. Failures are shown to the user, not thrown.
/// Nothing happens without recording and module, or while something is computed. GUI thread.
class AnalysisRunner {
public:
    /// What it works with; must outlive it.
    struct Around {
        QWidget& window;
        Documents& documents;
        OpenViews& views;
        WorkGui& gui;
        GenericPlatform& platform;
        ModuleBridge* bridge = nullptr; ///< null without the module
    };

    /// \param shown called when there is something new to see
    AnalysisRunner(const Around& around, std::function<void()> shown);

    bool CanAnalyse() const;
    /// Asks for the settings, computes, and shows what was computed.
    void New();
    void Recompute();
    /// Gives a recording that has no analysis this one, not computed.
    void MakeFirst(const SpectraMacro& macro);
    /// Whether the main analysis takes a stretch from where the traces stand.
    bool HasSelections() const;
    /// Moves the traces to the next such stretch and computes it. \return false at the last one
    bool GoToNextSelection();
    /// Shows a view, also from now on, and gives it the focus. Spectra and maps need an analysis, without one
    /// they would ask whenever they get the focus: the user is asked here, once. Work is cancelled first.
    void Show(ViewKind kind);

    /// Of contrast values on the spectra, in the views' side bars. The user's choice.
    bool UsesRegression() const;
    void UseRegression(bool use);
    /// Lets the open recording's analyses follow that choice.
    void ApplyRegression();

private:
    Around around_;
    std::function<void()> shown_;
};

} // namespace orvanta::review
