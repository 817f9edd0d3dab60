// SPDX-License-Identifier: GPL-3.0-or-later
// What is no recording, or stops being one, leaves the recording that is open as it is.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/notice_strip.h"
#include "host/review/app/main_window/starter_macros.h"
#include "host/review/app/traces/trace_view.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/recording_dc.h"

#include <QDialog>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using namespace orvanta;
using review::ViewKind;
using testing::ElementsAre;
using testing::HasSubstr;

// Of an EDF header: where a field begins, and the widths before it for each of the signals.
constexpr std::size_t kHeaderBytes = 184;
constexpr std::size_t kRecords = 236;
constexpr std::size_t kDuration = 244;
constexpr std::size_t kSignals = 252;
constexpr std::size_t kFirstSignal = 256;
constexpr std::size_t kSamplesAfter = 16 + 80 + 8 + 8 + 8 + 8 + 8 + 80;

class HostileFile : public test::WorkbenchFixture {
protected:
    HostileFile() : good_(Demo("good.edf")), bytes_(folder.Read("good.edf")) {
        review::InstallStarterMacros(folder.Path("data/MACRO/"));
        Start(good_);
    }

    /// The good recording with a field replaced.
    std::string With(std::size_t at, std::string field, std::size_t width = 8) const {
        field.resize(width, ' ');
        return std::string(bytes_).replace(at, width, field);
    }
    std::size_t SignalCount() const { return std::stoul(bytes_.substr(kSignals, 4)); }
    std::vector<std::string> DrawnTraces() const {
        test::RecordingDC dc;
        auto& view = *bench->Middle().Views().ViewOf(ViewKind::Traces);
        view.DrawPicture(dc, {800, 400}, 1); // whatever room the others leave it
        return dc.CallsOf("curve");
    }
    /// Opens it, is told why not, and everything is as before.
    void Refuses(const std::string& path, const std::string& what) {
        SCOPED_TRACE(what);
        const EEGFileInfoType* recording = &Recording();
        const std::vector<std::string> drawn = DrawnTraces();
        const std::size_t told = user.Messages().size();
        user.AnswersMessage(owl::kIdOk);
        bench->GetDocuments().Open(path);
        test::WaitUntilIdle();
        ASSERT_EQ(user.Messages().size(), told + 1);
        EXPECT_THAT(user.Messages().back().text, HasSubstr(path.substr(path.rfind('/') + 1) + ": "));
        EXPECT_THAT(user.Messages().back().text, HasSubstr(" (")) << "no remedy";
        ASSERT_EQ(&Recording(), recording);
        EXPECT_EQ(Title().toStdString(), "good.edf[*] - Orvanta");
        EXPECT_TRUE(DrawnTraces() == drawn);
        EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Traces));
        EXPECT_THAT(bench->GetDocuments().Recent().Paths(), ElementsAre(good_));
    }

    std::string good_, bytes_;
};

TEST_F(HostileFile, WithBrokenContentIsRefused) {
    const std::size_t samples = kFirstSignal + SignalCount() * kSamplesAfter;
    const std::pair<const char*, std::string> cases[] = {
        {"empty", ""},
        {"ends in the header", bytes_.substr(0, 100)},
        {"ends in the signals' header", bytes_.substr(0, kFirstSignal + 300)},
        {"a picture", "\x89PNG\r\n\x1a\n" + std::string(5000, '\0')},
        {"text", std::string(9000, 'x')},
        {"zeros", std::string(9000, '\0')},
        {"no signals", With(kSignals, "0", 4)},
        {"fewer than no signals", With(kSignals, "-5", 4)},
        {"more signals than bytes", With(kSignals, "9999", 4)},
        {"signals that are no number", With(kSignals, "many", 4)},
        {"samples that are no number", With(samples, "x")},
        {"fewer than no samples", With(samples, "-64")},
        {"more samples than bytes", With(samples, "99999999")},
    };
    for (const auto& [what, content] : cases) {
        Refuses(folder.Write("hostile.edf", content), what);
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_F(HostileFile, WithAWrongCountIsRepairedAndSaysSo) {
    const std::pair<const char*, std::string> cases[] = {
        {"ends before the samples", bytes_.substr(0, kFirstSignal * (SignalCount() + 1))},
        {"header bytes", With(kHeaderBytes, "99999999")},
        {"no header bytes", With(kHeaderBytes, "-1")},
        {"too many records", With(kRecords, "99999999")},
        {"unknown records", With(kRecords, "-1")},
        {"less than unknown", With(kRecords, "-77")},
        {"records that are no number", With(kRecords, "?")},
        {"a duration that is no number", With(kDuration, "nan")},
        {"an endless duration", With(kDuration, "1e999")},
        {"a duration before its beginning", With(kDuration, "-1")},
    };
    for (const auto& [what, content] : cases) {
        SCOPED_TRACE(what);
        bench->GetDocuments().Open(good_);
        bench->GetDocuments().Open(folder.Write("repaired.edf", content));
        ASSERT_EQ(Title().toStdString(), "repaired.edf[*] - Orvanta");
        EXPECT_TRUE(bench->Middle().Repairs().isVisible());
    }
}

TEST_F(HostileFile, ThatIsNoFileIsRefused) {
    std::filesystem::create_directory(folder.Path("folder.edf"));
    Refuses(folder.Path("folder.edf"), "a folder");
    ASSERT_EQ(mkfifo(folder.Path("pipe.edf").c_str(), 0600), 0);
    Refuses(folder.Path("pipe.edf"), "a pipe that nobody writes to");
    std::filesystem::create_symlink("/dev/zero", folder.Path("endless.edf"));
    Refuses(folder.Path("endless.edf"), "a device");
    std::filesystem::create_symlink("loop.edf", folder.Path("loop.edf"));
    Refuses(folder.Path("loop.edf"), "a link to itself");
    std::filesystem::create_symlink("nothing", folder.Path("lost.edf"));
    Refuses(folder.Path("lost.edf"), "a link to nothing");
    Refuses(folder.Path("none/missing.edf"), "a missing folder");
}

TEST_F(HostileFile, ThatMayNotBeReadIsRefused) {
    const std::string path = folder.Write("secret.edf", bytes_);
    std::filesystem::permissions(path, std::filesystem::perms::none);
    if (access(path.c_str(), R_OK) == 0) {
        // Root may read everything but a socket.
        std::filesystem::remove(path);
        const int socketFile = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        ASSERT_EQ(bind(socketFile, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        close(socketFile);
    }
    Refuses(path, "what may not be read");
}

TEST_F(HostileFile, OfAnotherFormatIsRefused) {
    const std::pair<const char*, std::string> cases[] = {
        {"empty.vhdr", ""},
        {"nowhere.vhdr", "Brain Vision Data Exchange Header File Version 1.0\n[Common Infos]\n"
                         "DataFile=none.eeg\nNumberOfChannels=2\nSamplingInterval=4000\n"},
        {"itself.vhdr", "Brain Vision Data Exchange Header File Version 1.0\n[Common Infos]\n"
                        "DataFile=itself.vhdr\nNumberOfChannels=99999999\nSamplingInterval=0\n"},
        {"short.bdf", std::string("\xff") + "BIOSEMI" + std::string(100, ' ')},
        {"zeros.bdf", std::string(9000, '\0')},
    };
    for (const auto& [name, content] : cases) {
        Refuses(folder.Write(name, content), name);
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_F(HostileFile, ThatGoesWhileItIsOpenStaysOnTheScreen) {
    AddAnalysis();
    std::filesystem::remove(good_);
    const std::vector<std::string> drawn = DrawnTraces();
    bench->GetAnalyses().Recompute();
    EXPECT_TRUE(Analyses().GetMain()->IsComputed());
    EXPECT_TRUE(DrawnTraces() == drawn);
    EXPECT_TRUE(user.Messages().empty());
}

TEST_F(HostileFile, ThatShrinksWhileItIsReadIsTold) {
    const std::string path = Demo("shrinks.edf", 1, 30);
    bench->GetDocuments().Open(path);
    user.MeetsDialog([](QDialog& form) {
        test::FormUser(form).SelectsRows("ListBoxMacro", {"Resting eyes closed"});
        test::FormUser(form).Clicks("BtnAutoAverage");
    });
    bench->GetAnalyses().New();
    ASSERT_TRUE(Analyses().GetMain()->IsComputed());
    std::filesystem::resize_file(path, std::filesystem::file_size(path) / 3);
    user.AnswersMessage(owl::kIdOk);
    Item("analysisRecompute").trigger();
    ASSERT_EQ(user.Messages().size(), 1U);
    EXPECT_THAT(user.Messages()[0].text, HasSubstr("shrinks.edf: "));
    EXPECT_FALSE(Analyses().GetMain()->IsComputed());
    auto& traces = static_cast<review::TraceView&>(*bench->Middle().Views().ViewOf(ViewKind::Traces));
    traces.GoTo(XTime::FromSeconds(1700));
    test::WaitUntilIdle();
    EXPECT_EQ(user.Messages().size(), 1U) << "traces tell theirs where they would be, and maps fail once";
    EXPECT_NE(bench->GetDocuments().Current(), nullptr);
    EXPECT_TRUE(traces.isVisible());
}

} // namespace
