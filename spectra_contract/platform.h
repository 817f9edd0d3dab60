// SPDX-License-Identifier: GPL-3.0-or-later
// What the host offers to the libraries and the module: settings, messages, progress, number text.
#pragma once

#include "host/toolkit/window_handle.h"
#include "spectra_contract/api.h"

#include <memory>
#include <string>

/// Parent of a progress display.
class MSWindow {
public:
    explicit MSWindow(HWND window) : window_(window) {}
    HWND Handle() const { return window_; }

private:
    HWND window_;
};

/// A progress display. Closed when destroyed. Called on the thread that started the work only.
class ORVANTA_API GenericProgress {
public:
    virtual ~GenericProgress();

    virtual void SetText(const std::string& text) = 0;
    /// \param fraction share of the work that is done, 0 to 1
    virtual void SetPosition(double fraction) = 0;
    /// True when the user asked to stop; the work then ends as soon as it can and leaves things as they were.
    virtual bool IsCancelled() const = 0;
};

/// The message and progress channel of the libraries.
class ORVANTA_API GenericGUI {
public:
    virtual ~GenericGUI();

    virtual void ShowError(const std::string& text) const = 0;
    virtual void ShowWarning(const std::string& text) const = 0;
    /// A progress display headed \p text; may be null when nothing is to be shown.
    virtual std::unique_ptr<GenericProgress> CreateProgress(const std::string& text) const = 0;
};

/// The settings of one user. Every read has a default; a value that does not parse counts as absent.
class ORVANTA_API UserType {
public:
    virtual ~UserType();

    virtual int GetInt(const char* section, const char* key, int defaultValue) const = 0;
    virtual double GetDouble(const char* section, const char* key, double defaultValue) const = 0;
    virtual void PutInt(const char* section, const char* key, int value) = 0;
    virtual void PutDouble(const char* section, const char* key, double value) = 0;
};

/// The host platform.
class ORVANTA_API GenericPlatform {
public:
    virtual ~GenericPlatform();

    /// Fixed-point text with the user's decimal sign; "n/a" for a value that is not finite. Always
    /// terminated; cut to \p size - 1 characters. Nothing is written when \p size is below 1.
    virtual void FloatToStrLoc(char* buffer, int size, double value, int decimals) const = 0;
    virtual const GenericGUI* GetGUI() const = 0;
    virtual UserType* GetUser() const = 0;
    /// Reads a text setting into \p buffer, at most \p maxLength characters and the terminator.
    virtual void ReadString(const char* section, const char* key, const char* defaultValue, char* buffer,
                            int maxLength) const = 0;
    virtual void WriteString(const char* section, const char* key, const char* value) = 0;
    /// A progress display; the caller owns it.
    virtual GenericProgress* CreateProgress(const char* text, const MSWindow& parent) const = 0;
    /// A folder of the application, for example "MACRO", with trailing separator. Created when missing.
    virtual std::string GetAppFolder(const char* name) const = 0;
};
