// SPDX-License-Identifier: GPL-3.0-or-later
// A bar of tool buttons, controls and status texts for a window.
#pragma once

#include "host/toolkit/export.h"

#include <QToolBar>
#include <QToolButton>

#include <string>

class QComboBox;
class QLabel;
class QSlider;

namespace owl {

class IdleEnablers;
class TEventHandler;

/// Shows one picture while up and another while down. A click runs the command; only the program presses.
class ORVANTA_TOOLKIT_API TwoStateButton final : public QToolButton {
public:
    explicit TwoStateButton(QWidget* parent = nullptr);

    void Press(bool down) { setChecked(down); }

protected:
    void nextCheckState() override {}
};

/// Gadgets from left to right in the order in which they are added; what finds no room is reached through an
/// arrow at the end. Buttons run commands of the event handler and follow its enablers; controls send it
/// messages. All but the texts can be reached with the Tab key; a click leaves the focus where it is. Tool
/// tips are UTF-8. GUI thread.
class ORVANTA_TOOLKIT_API GadgetBar final : public QToolBar {
public:
    /// \param handler must outlive the bar
    explicit GadgetBar(TEventHandler& handler, QWidget* parent = nullptr);

    QToolButton* AddButton(unsigned command, unsigned icon, const std::string& tip);
    TwoStateButton* AddTwoStateButton(unsigned command, unsigned upIcon, unsigned downIcon,
                                      const std::string& tip);
    /// 6 pixels with a line.
    QWidget* AddGap();
    /// Takes the control over.
    void AddControl(QWidget& control);
    /// A list to choose from. Each choice of the user, not of the program, sends the message with the index
    /// as its first argument.
    QComboBox* AddComboBox(unsigned message, const std::string& tip);
    /// 0 to 100 with a tick at every 10, 100 × 20 pixels. Each change sends the message with the position as
    /// its first argument.
    QSlider* AddSlider(unsigned message, int position, const std::string& tip);
    /// A recessed text in the middle of its field, which has room for so many wide characters, and grows for
    /// more.
    QLabel* AddText(int characters);

private:
    void Equip(QToolButton& button, unsigned command, const std::string& tip);
    void Send(unsigned message, int value);

    TEventHandler& handler_;
    IdleEnablers* enablers_;
};

} // namespace owl
