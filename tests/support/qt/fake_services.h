// SPDX-License-Identifier: GPL-3.0-or-later
// What windows ask of the system, as a test sets it.
#pragma once

#include "host/toolkit/services.h"

#include <QImage>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace orvanta::test {

/// The system's files, but for those that a test lets fail.
class FakeFiles final : public owl::FileAccess {
public:
    /// \param behind answers for all other paths
    explicit FakeFiles(const owl::FileAccess& behind) : behind_(behind) {}

    /// From now on everything done with this file or folder fails with this errno value.
    void Fail(const std::string& path, int error) { errors_[path] = error; }
    /// From now on this is the running program.
    void RunFrom(const std::string& program) { program_ = program; }
    /// The files that were removed, in their order.
    const std::vector<std::string>& Removed() const { return removed_; }

    int Access(const std::string& path, int mode) const override;
    int MakeFolders(const std::string& folder) const override;
    int Remove(const std::string& file) const override;
    std::vector<std::string> FilesIn(const std::string& folder, const std::string& ending) const override;
    std::string ProgramFile() const override { return program_; }

private:
    int ErrorOf(const std::string& path) const;

    const owl::FileAccess& behind_;
    std::map<std::string, int> errors_;
    std::string program_ = behind_.ProgramFile();
    mutable std::vector<std::string> removed_;
};

/// Starts nothing and writes down what was to be started.
class FakeProcesses final : public owl::ProcessLauncher {
public:
    struct Started {
        std::string commandLine, folder;
        bool operator==(const Started&) const = default;
    };

    /// What Launch answers from now on.
    void Succeed(bool success) { success_ = success; }
    const std::vector<Started>& Launched() const { return launched_; }

    bool Launch(const std::string& commandLine, const std::string& folder) const override;

private:
    bool success_ = true;
    mutable std::vector<Started> launched_;
};

class FakeClipboard final : public owl::Clipboard {
public:
    /// All texts that were put there, in their order.
    const std::vector<std::string>& Texts() const { return texts_; }
    /// The same for pictures.
    const std::vector<QImage>& Images() const { return images_; }

    void SetText(const std::string& text) const override { texts_.push_back(text); }
    void SetImage(const QImage& image) const override { images_.push_back(image); }

private:
    mutable std::vector<std::string> texts_;
    mutable std::vector<QImage> images_;
};

class FakeKeys final : public owl::KeyState {
public:
    void Hold(unsigned virtualKey) { held_.insert(virtualKey); }
    void Release(unsigned virtualKey) { held_.erase(virtualKey); }

    bool IsDown(unsigned virtualKey) const override { return held_.contains(virtualKey); }

private:
    std::set<unsigned> held_;
};

/// Stands still at 0 until the test moves it.
class FakeClock final : public owl::Clock {
public:
    void Set(std::int64_t milliseconds) { now_ = milliseconds; }
    void Advance(std::int64_t milliseconds) { now_ += milliseconds; }

    std::int64_t Milliseconds() const override { return now_; }

private:
    std::int64_t now_ = 0;
};

/// All of them, in the place of the services in use while it lives.
class FakeServices final {
public:
    FakeServices();
    ~FakeServices();
    FakeServices(const FakeServices&) = delete;
    FakeServices& operator=(const FakeServices&) = delete;

    FakeFiles files;
    FakeProcesses processes;
    FakeClipboard clipboard;
    FakeKeys keys;
    FakeClock clock;

private:
    owl::Services services_;
    const owl::Services* earlier_;
};

} // namespace orvanta::test
