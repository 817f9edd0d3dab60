// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/qt/fake_services.h"

#include <cerrno>

namespace orvanta::test {

int FakeFiles::ErrorOf(const std::string& path) const {
    const auto error = errors_.find(path);
    return error != errors_.end() ? error->second : 0;
}

int FakeFiles::Access(const std::string& path, int mode) const {
    if (const int error = ErrorOf(path)) {
        errno = error;
        return error;
    }
    return behind_.Access(path, mode);
}

int FakeFiles::MakeFolders(const std::string& folder) const {
    const int error = ErrorOf(folder);
    return error != 0 ? error : behind_.MakeFolders(folder);
}

int FakeFiles::Remove(const std::string& file) const {
    const int failure = ErrorOf(file);
    const int error = failure != 0 ? failure : behind_.Remove(file);
    if (error == 0) {
        removed_.push_back(file);
    }
    return error;
}

std::vector<std::string> FakeFiles::FilesIn(const std::string& folder, const std::string& ending) const {
    return ErrorOf(folder) != 0 ? std::vector<std::string>() : behind_.FilesIn(folder, ending);
}

bool FakeProcesses::Launch(const std::string& commandLine, const std::string& folder) const {
    launched_.push_back({commandLine, folder});
    return success_;
}

FakeServices::FakeServices()
    : files(*owl::CurrentServices().files), services_{&files, &processes, &clipboard, &keys, &clock},
      earlier_(owl::ReplaceServices(&services_)) {}

FakeServices::~FakeServices() {
    owl::ReplaceServices(earlier_);
}

} // namespace orvanta::test
