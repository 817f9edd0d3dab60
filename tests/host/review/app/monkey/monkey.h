// SPDX-License-Identifier: GPL-3.0-or-later
// A user without sense.
#pragma once

#include "host/toolkit/modal_gateway.h"
#include "tests/host/review/app/monkey/journal.h"

#include <QObject>
#include <QPoint>
#include <QPointer>

#include <random>
#include <string>
#include <vector>

class QMenu;
class QWidget;

namespace orvanta::test {

/// Clicks, drags, turns the wheel, presses keys and types anywhere in the windows that are shown, and answers
/// what comes up: dialogs are worked on in the same way and then closed one way or another, choosers answer
/// with files of the monkey's own or nothing. What it does depends on its seed alone. GUI thread; takes the
/// place of the user while it lives.
class Monkey final : public QObject, public owl::ModalGateway {
public:
    struct Setup {
        std::uint64_t seed = 0;
        std::vector<std::string> files; ///< to open
        std::string folder;             ///< to save in, with trailing separator
    };

    explicit Monkey(Setup setup);
    ~Monkey() override;

    /// One event on what the user can reach now.
    void ActOn(QWidget& window);
    unsigned Number(unsigned below) { return static_cast<unsigned>(random_() % below); }
    bool Chance(unsigned percent) { return Number(100) < percent; }
    const std::string& AnyFile() { return setup_.files[Number(static_cast<unsigned>(setup_.files.size()))]; }
    Journal& Notes() { return journal_; }

    int ShowMessage(HWND owner, const std::string& text, const std::string& caption, unsigned type) override;
    int RunModal(QDialog& dialog) override;
    std::optional<std::string> AskFileToOpen(HWND owner, const owl::FileQuestion& question) override;
    std::optional<std::string> AskFileToSave(HWND owner, const owl::FileQuestion& question) override;
    std::optional<owl::TColor> AskColor(HWND owner, owl::TColor color) override;
    std::optional<owl::TFont> AskFont(HWND owner, const owl::TFont& font) override;
    std::optional<std::string> AskText(HWND owner, const owl::TextQuestion& question) override;

protected:
    /// Menus and dialogs that wait for their end in a loop of Qt's, and progress displays.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// A visible widget in the window, or the window.
    QWidget& AnyWidget(QWidget& window);
    QPoint AnyPoint(const QWidget& widget);
    Qt::KeyboardModifiers AnyModifiers();
    std::string AnyText();

    void Click(QWidget& window);
    void Drag(QWidget& window);
    void Wheel(QWidget& window);
    void Press(QWidget& window);
    void Type(QWidget& window);
    void Choose(QWidget& window);
    void Tend(const QPointer<QWidget>& popup, int events);

    Setup setup_;
    std::mt19937_64 random_;
    Journal journal_;
    owl::ModalGateway* earlier_;
    int dialogs_ = 0;            ///< open, one over the other
    QWidget* running_ = nullptr; ///< the dialog that is about to be shown and worked on
};

} // namespace orvanta::test
