// SPDX-License-Identifier: GPL-3.0-or-later
// The application's window on the desktop.
#pragma once

#include <QMainWindow>

#include <functional>
#include <string>

class GenericPlatform;
class QLabel;

namespace orvanta::review {

class SideBar;

/// Menu bar, side bar, message bar and the middle; takes dropped files. GUI thread.
class Shell final : public QMainWindow {
public:
    struct Answers {
        /// \return whether the window may close now
        std::function<bool()> close;
        std::function<void(const std::string& path)> drop;
    };

    explicit Shell(Answers answers);

    SideBar& GetSideBar() const { return *sideBar_; }
    /// The text of the message bar; empty for none.
    void ShowText(const std::string& text);
    std::string ShownText() const;
    /// The fields at the right of the message bar: recording, montage, place.
    void ShowFields(const QString& recording, const QString& montage, const QString& place);
    QString ShownPlace() const;
    /// \param file empty without a recording
    void ShowTitle(const QString& file, bool changed);

    // Place and size among the user's settings.
    void Restore(const GenericPlatform& platform);
    void Store(GenericPlatform& platform) const;

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    Answers answers_;
    SideBar* sideBar_;
    QLabel *text_, *recording_, *montage_, *place_;
};

} // namespace orvanta::review
