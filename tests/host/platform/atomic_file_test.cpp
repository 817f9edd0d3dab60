// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/atomic_file.h"

#include "tests/support/temp_folder.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvanta::platform {
namespace {

class AtomicFile : public testing::Test {
protected:
    /// Writes "new content" over "old"; the reason of the failure, or empty.
    std::string Save(const FileOperations& operations) {
        try {
            WriteFileAtomically(path_, "new content", operations);
            return {};
        } catch (const std::runtime_error& error) {
            return error.what();
        }
    }

    /// Saves with one operation failing: the old file is whole, nothing else is left, the reason is told.
    void ExpectOldFileAfter(const FileOperations& operations, const std::string& reason) {
        PutOld();
        EXPECT_EQ(Save(operations), path_ + ": cannot be written: " + reason);
        EXPECT_EQ(Content(), "old");
        EXPECT_EQ(Entries(), 1);
    }

    void PutOld() { folder_.Write("file.xml", "old"); }
    std::string Content() { return folder_.Read("file.xml"); }
    long Entries() { return std::distance(std::filesystem::directory_iterator(folder_.Path("")), {}); }

    test::TempFolder folder_;
    std::string path_ = folder_.Path("file.xml");
    FileOperations operations_ = FileOperations::System();
};

TEST_F(AtomicFile, WritesANewFile) {
    WriteFileAtomically(path_, "new content");
    EXPECT_EQ(Content(), "new content");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(AtomicFile, ReplacesAFile) {
    folder_.Write("file.xml", "an old file that was longer");
    WriteFileAtomically(path_, "short");
    EXPECT_EQ(Content(), "short");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(AtomicFile, WritesAnEmptyFile) {
    PutOld();
    WriteFileAtomically(path_, "");
    EXPECT_EQ(Content(), "");
}

TEST_F(AtomicFile, KeepsThePermissionsOfTheFileItReplaces) {
    using std::filesystem::perms;
    PutOld();
    std::filesystem::permissions(path_, perms::owner_read | perms::owner_write | perms::group_read);
    WriteFileAtomically(path_, "new");
    EXPECT_EQ(std::filesystem::status(path_).permissions(),
              perms::owner_read | perms::owner_write | perms::group_read);
}

TEST_F(AtomicFile, ReplacesTheFileBehindALink) {
    const std::string link = folder_.Path("link.xml");
    PutOld();
    std::filesystem::create_symlink(path_, link);
    WriteFileAtomically(link, "new");
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(Content(), "new");
}

TEST_F(AtomicFile, DoesNotReplaceADevice) {
    EXPECT_THROW(WriteFileAtomically("/dev/null", "new"), std::runtime_error);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST_F(AtomicFile, DoesNotReplaceAProtectedFile) {
    constexpr uid_t kNobody = 65534;
    PutOld();
    ASSERT_EQ(::chmod(path_.c_str(), 0444), 0);
    ASSERT_EQ(::chmod(folder_.Path("").c_str(), 0777), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        // Nothing is protected from the superuser.
        const bool isUser = ::geteuid() != 0 || ::setuid(kNobody) == 0;
        const bool refused = Save(operations_) == path_ +
                                                      ": cannot be written: Permission denied (change its "
                                                      "permissions or choose another name)";
        ::_exit(isUser && refused ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(Content(), "old");
}

TEST_F(AtomicFile, RefusesAFolderThatDoesNotExist) {
    try {
        WriteFileAtomically(folder_.Path("none/file.xml"), "new");
        FAIL() << "wrote into a folder that does not exist";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), folder_.Path("none/file.xml") + ": cannot be written: No such file or "
                                                                "directory (choose a folder that exists)");
    }
}

TEST_F(AtomicFile, TakesAnotherNameWhenTheTemporaryOneIsTaken) {
    int calls = 0;
    operations_.create = [&](const char* path) {
        return ++calls < 3 ? (errno = EEXIST, -1) : FileOperations::System().create(path);
    };
    EXPECT_EQ(Save(operations_), "");
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(Content(), "new content");
}

TEST_F(AtomicFile, CompletesShortWrites) {
    operations_.write = [](int descriptor, const char* data, unsigned long size) {
        return FileOperations::System().write(descriptor, data, std::min(size, 1ul));
    };
    EXPECT_EQ(Save(operations_), "");
    EXPECT_EQ(Content(), "new content");
}

TEST_F(AtomicFile, RepeatsInterruptedCalls) {
    int interruptions = 0;
    const auto interrupted = [&] { return ++interruptions % 2 == 1 ? (errno = EINTR, true) : false; };
    operations_.create = [&](const char* path) {
        return interrupted() ? -1 : FileOperations::System().create(path);
    };
    operations_.write = [&](int descriptor, const char* data, unsigned long size) {
        return interrupted() ? -1L : FileOperations::System().write(descriptor, data, std::min(size, 4ul));
    };
    operations_.sync = [&](int descriptor) {
        return interrupted() ? -1 : FileOperations::System().sync(descriptor);
    };
    EXPECT_EQ(Save(operations_), "");
    EXPECT_EQ(interruptions, 2 * (1 + 3 + 1));
    EXPECT_EQ(Content(), "new content");
}

TEST_F(AtomicFile, AnInterruptedCloseIsDone) {
    int closed = 0;
    operations_.close = [&](int descriptor) {
        ++closed;
        FileOperations::System().close(descriptor);
        errno = EINTR;
        return -1;
    };
    EXPECT_EQ(Save(operations_), "");
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(Content(), "new content");
}

TEST_F(AtomicFile, FailureToCreateLeavesTheOldFile) {
    operations_.create = [](const char*) { return errno = EACCES, -1; };
    ExpectOldFileAfter(operations_, "Permission denied (choose a folder that you may write to)");
}

TEST_F(AtomicFile, FailureToTakeOverThePermissionsLeavesTheOldFile) {
    operations_.copy_mode = [](int, const char*) { return errno = EPERM, -1; };
    ExpectOldFileAfter(operations_, "Operation not permitted (choose a folder that you may write to)");
}

TEST_F(AtomicFile, FailureOfEveryWriteLeavesTheOldFile) {
    for (int failing = 1; failing <= 3; ++failing) {
        int calls = 0;
        operations_.write = [&](int descriptor, const char* data, unsigned long size) {
            return ++calls == failing ? (errno = ENOSPC, -1L)
                                      : FileOperations::System().write(descriptor, data, std::min(size, 4ul));
        };
        ExpectOldFileAfter(operations_, "No space left on device (free some space or save elsewhere)");
        EXPECT_EQ(calls, failing);
    }
}

TEST_F(AtomicFile, AWriteThatTakesNothingIsAFailure) {
    operations_.write = [](int, const char*, unsigned long) { return 0L; };
    ExpectOldFileAfter(operations_, "No space left on device (free some space or save elsewhere)");
}

TEST_F(AtomicFile, FailureToSyncLeavesTheOldFile) {
    operations_.sync = [](int) { return errno = EIO, -1; };
    ExpectOldFileAfter(operations_, "Input/output error (try again or save elsewhere)");
}

TEST_F(AtomicFile, FailureToCloseLeavesTheOldFile) {
    operations_.close = [](int descriptor) {
        FileOperations::System().close(descriptor);
        return errno = EDQUOT, -1;
    };
    ExpectOldFileAfter(operations_, "Disk quota exceeded (free some space or save elsewhere)");
}

TEST_F(AtomicFile, FailureToRenameLeavesTheOldFile) {
    operations_.rename = [](const char*, const char*) { return errno = EROFS, -1; };
    ExpectOldFileAfter(operations_, "Read-only file system (choose a folder that you may write to)");
}

TEST_F(AtomicFile, FailureToSyncTheFolderComesTooLateToMatter) {
    operations_.sync_folder = [](const char*) { return errno = EINVAL, -1; };
    PutOld();
    EXPECT_EQ(Save(operations_), "");
    EXPECT_EQ(Content(), "new content");
}

TEST_F(AtomicFile, SyncsTheFileBeforeItsNewNameAndTheFolderAfter) {
    std::string order;
    operations_.write = [&](int descriptor, const char* data, unsigned long size) {
        return order += "write ", FileOperations::System().write(descriptor, data, size);
    };
    operations_.sync = [&](int descriptor) {
        return order += "sync ", FileOperations::System().sync(descriptor);
    };
    operations_.close = [&](int descriptor) {
        return order += "close ", FileOperations::System().close(descriptor);
    };
    operations_.rename = [&](const char* from, const char* to) {
        return order += "rename ", FileOperations::System().rename(from, to);
    };
    operations_.sync_folder = [&](const char* folder) {
        return order += "folder", FileOperations::System().sync_folder(folder);
    };
    EXPECT_EQ(Save(operations_), "");
    EXPECT_EQ(order, "write sync close rename folder");
}

/// A save in a process of its own that ends without notice before its call number \p fatal.
void SaveAndDie(const std::string& path, int fatal) {
    int calls = 0;
    const auto step = [&] {
        if (++calls == fatal) {
            ::_exit(0);
        }
    };
    const FileOperations& system = FileOperations::System();
    FileOperations operations = system;
    operations.create = [&](const char* name) { return step(), system.create(name); };
    operations.write = [&](int descriptor, const char* data, unsigned long size) {
        return step(), system.write(descriptor, data, std::min(size, 4ul));
    };
    operations.sync = [&](int descriptor) { return step(), system.sync(descriptor); };
    operations.close = [&](int descriptor) { return step(), system.close(descriptor); };
    operations.rename = [&](const char* from, const char* to) { return step(), system.rename(from, to); };
    operations.sync_folder = [&](const char* folder) { return step(), system.sync_folder(folder); };
    WriteFileAtomically(path, "new content", operations);
    ::_exit(1);
}

TEST_F(AtomicFile, ASaveKilledAtAnyMomentLeavesTheOldOrTheNewFile) {
    // create, three writes, sync, close, rename, folder: eight moments, then one save that lives.
    const char* const expected[] = {"old", "old", "old",         "old",        "old",
                                    "old", "old", "new content", "new content"};
    for (int fatal = 1; fatal <= 9; ++fatal) {
        PutOld();
        const pid_t child = ::fork();
        if (child == 0) {
            SaveAndDie(path_, fatal);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), fatal == 9 ? 1 : 0) << fatal;
        EXPECT_EQ(Content(), expected[fatal - 1]) << fatal;
    }
}

} // namespace
} // namespace orvanta::platform
