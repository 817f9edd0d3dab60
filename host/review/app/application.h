// SPDX-License-Identifier: GPL-3.0-or-later
// The GUI application of one command.
#pragma once

#include "host/review/app/review_entry.h"

#include <QApplication>
#include <QLocale>
#include <QTimer>
#include <QTranslator>

#include <memory>

namespace orvanta::review {

enum class Screen {
    Required, ///< the user must see and answer
    None,     ///< windows are only painted, as for a screen of 1366 × 768
};

/// Starts Qt. Ends what is shown when the program is interrupted. One at a time.
class Application {
public:
    /// \param scale device pixels per logical pixel; without a screen
    /// \throws cli::UsageError when a screen is required and there is none
    explicit Application(Screen screen, double scale = 1);

    /// Applies a style to all windows.
    void SetStyle(Style style);
    /// All texts from now on, in windows that are made after it; numbers stay those of the user. Empty for
    /// the language of the user.
    void SetTextLanguage(const std::string& language);
    /// Qt's own texts and number texts from now on, as of the user when \p language is empty.
    void SetLanguage(const std::string& language);

private:
    void LoadTexts(const QLocale& locale);

    std::unique_ptr<QApplication> qt_;
    QTranslator texts_;
    QTimer interruptWatch_;
};

} // namespace orvanta::review
