// SPDX-License-Identifier: GPL-3.0-or-later
// A user of Qt's own modal dialogs.
#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <utility>

namespace orvanta::test {

/// Does one step with each modal dialog that comes up, in order; a step left over fails the test. A dialog
/// may come up over another one.
class ModalHand {
public:
    ModalHand() = default;
    ~ModalHand() { EXPECT_TRUE(steps_.empty()) << steps_.size() << " dialogs did not come up"; }
    ModalHand(const ModalHand&) = delete;
    ModalHand& operator=(const ModalHand&) = delete;

    /// \tparam Dialog what has to come up
    template <typename Dialog>
    ModalHand& Meets(std::function<void(Dialog&)> action) {
        steps_.push_back([action = std::move(action)](QWidget& shown) {
            auto* dialog = qobject_cast<Dialog*>(&shown);
            ASSERT_NE(dialog, nullptr) << "another dialog came up: " << shown.metaObject()->className();
            action(*dialog);
        });
        Wait();
        return *this;
    }

private:
    void Wait() {
        QTimer::singleShot(0, &context_, [this] { Act(); });
    }
    void Act() {
        QWidget* shown = QApplication::activeModalWidget();
        if (steps_.empty()) {
            return;
        }
        // The step may end in a dialog over this one, which waits for the next step.
        Wait();
        if (shown != nullptr) {
            const auto step = std::move(steps_.front());
            steps_.pop_front();
            step(*shown);
        }
    }

    std::deque<std::function<void(QWidget&)>> steps_;
    QObject context_;
};

} // namespace orvanta::test
