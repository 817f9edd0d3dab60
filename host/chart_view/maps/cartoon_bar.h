// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of a cartoon.
#pragma once

#include "spectra_contract/time.h"

#include <QWidget>

#include <functional>
#include <optional>

class QComboBox;
class QLabel;
class QSlider;
class QToolButton;

namespace orvanta::chart {

/// Where a cartoon is.
struct CartoonState {
    std::uint64_t count = 0;               ///< epochs
    std::uint64_t first = 0;               ///< epoch of the first map
    std::uint64_t length = 0;              ///< epochs seen at once
    std::uint64_t last = 0;                ///< the first epoch of the last stretch
    std::optional<XTimeInterval> time;     ///< of what is seen
    std::optional<XTimeInterval> lastTime; ///< of the last stretch
    bool playing = false;
};

/// Steps per second that can be chosen.
inline constexpr int kSpeeds[] = {1, 2, 5, 10, 25};

/// Buttons, a slider over the epochs, where it is as text, speed and loop. Reached with the Tab key; a click
/// leaves the focus where it is. What does not fit is left out, the time first and the epoch last. GUI
/// thread.
class ORVANTA_API CartoonBar final : public QWidget {
public:
    /// What the user asks for.
    struct Requests {
        std::function<void()> playOrPause;
        std::function<void(int steps)> step;     ///< by so many epochs
        std::function<void(int windows)> leaf;   ///< by so many windowfuls
        std::function<void(std::uint64_t)> show; ///< this epoch
        std::function<void()> changed;           ///< speed or loop
    };

    CartoonBar(QWidget* parent, Requests requests);

    /// Changes made so are not requests.
    void Show(const CartoonState& state);
    /// Epochs and their time, in words.
    QString Where() const;
    int Speed() const;
    void SetSpeed(int stepsPerSecond);
    bool Loops() const;
    void SetLoops(bool loops);

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Fit();
    /// As wide as for the last stretch, so that nothing moves while it plays.
    void SayWhere(bool withTime);
    QToolButton* AddButton(const char* name, const char* icon, const char* key, const char* tip,
                           std::function<void()> request);

    Requests requests_;
    CartoonState state_;
    QToolButton* play_ = nullptr;
    QSlider* slider_ = nullptr;
    QLabel* where_ = nullptr;
    QComboBox* speed_ = nullptr;
    QToolButton* loop_ = nullptr;
    std::vector<QWidget*> moving_; ///< of no use while all epochs are seen
};

/// "Epoch 5 of 120" or "Epochs 5–8 of 120", numbered from 1.
ORVANTA_API QString EpochText(const CartoonState& state);
/// "0:00:04.0 – 0:00:08.0", from the recording's start; empty where it is not known.
ORVANTA_API QString TimeText(const std::optional<XTimeInterval>& time);

} // namespace orvanta::chart
