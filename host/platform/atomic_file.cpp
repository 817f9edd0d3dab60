// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/atomic_file.h"

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <system_error>

#include <unistd.h>

namespace orvanta::platform {

namespace {

constexpr int kNameAttempts = 100;

const char* RemedyFor(int error) {
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return "free some space or save elsewhere";
    case EACCES:
    case EPERM:
    case EROFS:
        return "choose a folder that you may write to";
    case ENOENT:
    case ENOTDIR:
        return "choose a folder that exists";
    case ENAMETOOLONG:
        return "choose a shorter name";
    default:
        return "try again or save elsewhere";
    }
}

[[noreturn]] void Fail(const std::string& path, const std::string& reason, const std::string& remedy) {
    throw std::runtime_error(path + ": " + reason + " (" + remedy + ")");
}

/// Repeats a call that a signal has interrupted.
template <typename Call>
auto Repeat(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// The file that is to be replaced: what a link at \p path points at, else \p path.
std::filesystem::path Target(const std::string& path) {
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::canonical(path, error);
    std::filesystem::path target = error ? std::filesystem::path(path) : resolved;
    const std::filesystem::file_status status = std::filesystem::status(target, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        Fail(path, "is no regular file and is not replaced", "choose another name");
    }
    // Where the folder can be written, a protected file could be replaced all the same.
    if (std::filesystem::exists(status) && ::access(target.c_str(), W_OK) != 0) {
        Fail(path, "cannot be written: " + std::generic_category().message(errno),
             "change its permissions or choose another name");
    }
    return target;
}

/// A temporary file that is gone at the end of the scope unless it has taken the target's name.
class TemporaryFile {
public:
    TemporaryFile(const std::filesystem::path& target, const FileOperations& operations)
        : operations_(operations) {
        static std::atomic<unsigned> counter{0};
        for (int attempt = 0; attempt < kNameAttempts && descriptor_ < 0; ++attempt) {
            const std::string name =
                ".orvanta-" + std::to_string(::getpid()) + "-" + std::to_string(counter++) + ".tmp";
            path_ = (target.parent_path() / name).string();
            descriptor_ = Repeat([&] { return operations_.create(path_.c_str()); });
            if (descriptor_ < 0 && errno != EEXIST) {
                break;
            }
        }
        if (descriptor_ < 0) {
            throw std::system_error(errno, std::generic_category());
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (descriptor_ >= 0) {
            operations_.close(descriptor_);
        }
        if (!renamed_) {
            operations_.remove(path_.c_str());
        }
    }

    void Write(std::string_view content) {
        while (!content.empty()) {
            const long written =
                Repeat([&] { return operations_.write(descriptor_, content.data(), content.size()); });
            if (written == 0) {
                errno = ENOSPC; // a file system that takes nothing and names no reason
            }
            Check(written > 0);
            content.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    void CopyMode(const std::filesystem::path& model) {
        Check(operations_.copy_mode(descriptor_, model.c_str()) == 0);
    }
    void SyncAndClose() {
        Check(Repeat([&] { return operations_.sync(descriptor_); }) == 0);
        // The descriptor is gone whatever close answers; after a sync an interruption has lost nothing.
        const bool closed = operations_.close(descriptor_) == 0 || errno == EINTR;
        descriptor_ = -1;
        Check(closed);
    }
    void RenameTo(const std::filesystem::path& target) {
        Check(Repeat([&] { return operations_.rename(path_.c_str(), target.c_str()); }) == 0);
        renamed_ = true;
    }

private:
    static void Check(bool success) {
        if (!success) {
            throw std::system_error(errno, std::generic_category());
        }
    }

    const FileOperations& operations_;
    std::string path_;
    int descriptor_ = -1;
    bool renamed_ = false;
};

/// Does a step of the save; the system's errors become those of the file at \p path.
template <typename Step>
void Attempt(const std::string& path, const Step& step) {
    try {
        step();
    } catch (const std::system_error& error) {
        Fail(path, "cannot be written: " + error.code().message(), RemedyFor(error.code().value()));
    }
}

} // namespace

struct AtomicFile::Impl {
    std::string path; ///< as the caller named it
    std::filesystem::path target;
    FileOperations operations;
    std::optional<TemporaryFile> temporary;
};

AtomicFile::AtomicFile(const std::string& path, const FileOperations& operations)
    : impl_(new Impl{path, Target(path), operations, {}}) {
    Attempt(path, [&] {
        impl_->temporary.emplace(impl_->target, impl_->operations);
        impl_->temporary->CopyMode(impl_->target);
    });
}

AtomicFile::~AtomicFile() = default;

void AtomicFile::Write(std::string_view content) {
    Attempt(impl_->path, [&] { impl_->temporary->Write(content); });
}

void AtomicFile::Commit() {
    Attempt(impl_->path, [&] {
        impl_->temporary->SyncAndClose();
        impl_->temporary->RenameTo(impl_->target);
    });
    const std::filesystem::path folder = impl_->target.parent_path();
    impl_->operations.sync_folder(folder.empty() ? "." : folder.c_str());
}

void WriteFileAtomically(const std::string& path, std::string_view content,
                         const FileOperations& operations) {
    AtomicFile file(path, operations);
    file.Write(content);
    file.Commit();
}

} // namespace orvanta::platform
