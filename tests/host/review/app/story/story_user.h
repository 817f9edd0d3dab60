// SPDX-License-Identifier: GPL-3.0-or-later
// One user at the screen, with files of her own.
#pragma once

#include "host/review/app/traces/trace_view.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"
#include "tests/host/review/app/story/hand.h"

#include <QTreeWidget>

#include <string>

class CartoonStat;

namespace orvanta::test {

/// The application as it is installed: starter macros, settings and data in a folder, events saved unasked.
/// With ORVANTA_STORY_PICTURES=FOLDER there is a picture of the screen for each step.
class StoryUser : public WorkbenchFixture {
protected:
    StoryUser();

    void StartsTheProgram();
    /// In the menu bar, with the mouse.
    void Chooses(const char* menu, const char* item) const;
    /// In the dialog of new analyses, which the next step brings up.
    void WillTakeMacro(const char* name, const char* picture = nullptr);
    /// Clicks a row of one of the side bar's lists.
    void ClicksRow(const char* list, const std::string& name) const;
    /// A button of the window, by its object's name.
    void ClicksButton(const char* name) const;

    /// "NN-what.png", numbered in order.
    void Pictures(const std::string& what) const;
    /// The folder of such pictures; empty for none.
    static QString PictureFolder();

    review::TraceView& Traces() const;
    TheChild& Spectrum() const;
    CartoonStat& Maps() const;
    /// A place in the traces' plot; \p x and \p y from 0 to 1 of the view.
    QPoint InTraces(double x, double y = 0.4) const;
    double PageStart() const { return Traces().GetPage().GetBeginPtr()->Seconds(); }
    double PageLength() const { return Traces().GetPage().GetEndPtr()->Seconds() - PageStart(); }
    /// The channel that is marked among the traces; empty for none.
    std::string MarkedChannel() const;
    /// Own events with this label.
    std::vector<EventRecord> Marked(const std::string& label) const;
    /// Waits until this is so, for seconds at most.
    static bool Soon(const std::function<bool()>& isSo);

    Hand hand;

private:
    mutable int pictures_ = 0;
};

} // namespace orvanta::test
