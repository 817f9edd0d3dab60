// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/file_path.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct Taken {
    const char* path;
    const char* folder;
    const char* file;
    const char* extension;
};

void PrintTo(const Taken& taken, std::ostream* out) {
    *out << '"' << taken.path << '"';
}

class FilePathParts : public testing::TestWithParam<Taken> {};

TEST_P(FilePathParts, AreFolderNameAndExtension) {
    const FilePath path(GetParam().path);
    EXPECT_EQ(path.GetFolder(), GetParam().folder);
    EXPECT_EQ(path.GetFile(), GetParam().file);
    EXPECT_EQ(path.GetExt(), GetParam().extension);
    EXPECT_EQ(path.GetFullPath(), std::string(GetParam().folder) + GetParam().file + GetParam().extension);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, FilePathParts,
    testing::Values(Taken{"/data/rec.edf", "/data/", "rec", ".edf"}, Taken{"rec.edf", "", "rec", ".edf"},
                    Taken{"/data/rec", "/data/", "rec", ""}, Taken{"/data/", "/data/", "", ""},
                    Taken{"", "", "", ""}, Taken{"/", "/", "", ""}, Taken{"/a.b/rec", "/a.b/", "rec", ""},
                    Taken{"rec.tar.gz", "", "rec.tar", ".gz"}, Taken{".smx", "", ".smx", ""},
                    Taken{"/data/.smx", "/data/", ".smx", ""}, Taken{".hidden.smx", "", ".hidden", ".smx"},
                    Taken{"rec.", "", "rec", "."},
                    Taken{"c:\\quorvex\\quorvex.exe", "c:/quorvex/", "quorvex", ".exe"},
                    Taken{"/mixed\\rec.edf", "/mixed/", "rec", ".edf"},
                    Taken{"/Ü/Größe.xml", "/Ü/", "Größe", ".xml"}));

TEST(FilePath, ReplacesTheNameOnly) {
    FilePath path("/data/rec.edf");
    path.SetFile("other");
    EXPECT_EQ(path.GetFullPath(), "/data/other.edf");
}

TEST(FilePath, ReplacesTheExtensionWithOrWithoutItsDot) {
    FilePath path("/data/rec.edf");
    path.SetExt("xml");
    EXPECT_EQ(path.GetFullPath(), "/data/rec.xml");
    path.SetExt(".smx");
    EXPECT_EQ(path.GetFullPath(), "/data/rec.smx");
    path.SetExt("");
    EXPECT_EQ(path.GetFullPath(), "/data/rec");
}

TEST(FilePath, TakesANewFullPath) {
    FilePath path("/data/rec.edf");
    path.SetFullPath("b.smx");
    EXPECT_EQ(path.GetFolder(), "");
    EXPECT_EQ(path.GetFullPath(), "b.smx");
}

} // namespace
