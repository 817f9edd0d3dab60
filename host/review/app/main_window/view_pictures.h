// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the active view, as the user asks for them.
#pragma once

#include <functional>

class GenericPlatform;

namespace orvanta::review {

class Documents;
class MainWindow;
class Shell;
class WorkGui;
struct ViewToShow;

/// Failures are shown to the user, not thrown. Nothing happens without an active view, or while something is
/// computed. GUI thread.
class ViewPictures {
public:
    /// All must outlive this.
    ViewPictures(Shell& shell, const MainWindow& middle, const Documents& documents, const WorkGui& gui)
        : shell_(shell), middle_(middle), documents_(documents), gui_(gui) {}

    bool HasView() const;
    void Save();
    void Print();
    void Copy();

private:
    void Take(const std::function<void(const ViewToShow&)>& take);

    Shell& shell_;
    const MainWindow& middle_;
    const Documents& documents_;
    const WorkGui& gui_;
};

} // namespace orvanta::review
