// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the views of the application.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/settling.h"
#include "host/review/app/main_window/starter_macros.h"
#include "host/review/app/pictures_out/picture_dialog.h"
#include "host/review/app/pictures_out/view_picture.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"
#include "tests/support/qt/form_user.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPrintDialog>
#include <QPrinter>

#include <filesystem>

namespace {

using namespace orvanta;
using review::PictureFormat;
using review::ViewKind;
using test::FormUser;

/// Files of pictures are too long to be shown when they are wrong.
bool Holds(const std::string& file, const char* text) {
    return file.find(text) != std::string::npos;
}

class Pictures : public test::WorkbenchFixture {
protected:
    /// The demo with an analysis, all views shown.
    void Analyse() {
        review::InstallStarterMacros(folder.Path("data/MACRO/"));
        Start(Demo());
        user.MeetsDialog([](QDialog& form) {
            FormUser(form).SelectsRows("ListBoxMacro", {"Resting eyes closed"});
            FormUser(form).Clicks("BtnAutoAverage");
        });
        Item("analysisNew").trigger();
        test::WaitUntilIdle();
        for (const ViewKind kind : {ViewKind::Traces, ViewKind::Spectrum, ViewKind::Maps}) {
            if (!bench->GetViews().IsShown(kind)) {
                bench->GetAnalyses().Show(kind);
            }
        }
        review::LetItSettle([this] { return bench->IsSettled(); });
    }
    TheChild& View(ViewKind kind) const { return *bench->Middle().Views().ViewOf(kind); }
    review::ViewToShow Shown(ViewKind kind) const { return {View(kind), "demo.edf - a view", "demo"}; }
    void Activate(ViewKind kind) const {
        bench->Window().activateWindow();
        test::WaitUntilIdle();
        View(kind).SetFocus();
        test::WaitUntilIdle();
        ASSERT_EQ(bench->Middle().GetActiveChild(), &View(kind));
    }
    /// The user chooses format and size in pixels of a resolution.
    void Size(PictureFormat format, int width, int height, int resolution = 96) {
        user.Meets<review::PictureDialog>([=](review::PictureDialog& form) {
            form.findChild<QComboBox*>("Format")->setCurrentIndex(static_cast<int>(format));
            form.findChild<QComboBox*>("Unit")->setCurrentIndex(0);
            FormUser(form).SetsNumber("Resolution", resolution);
            form.findChild<QCheckBox*>("Proportions")->setChecked(false);
            form.findChild<QDoubleSpinBox*>("Width")->setValue(width);
            form.findChild<QDoubleSpinBox*>("Height")->setValue(height);
            form.accept();
        });
    }
    /// Colours that are no grey, which the ink of curves and maps is.
    static int ColouredPixels(const QImage& image) {
        int coloured = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                coloured += QColor(image.pixel(x, y)).hsvSaturation() > 60 ? 1 : 0;
            }
        }
        return coloured;
    }
};

TEST_F(Pictures, AreOfTheActiveView) {
    Start();
    for (const char* item : {"fileSavePicture", "fileCopyPicture", "filePrint"}) {
        EXPECT_FALSE(Item(item).isEnabled()) << item;
    }
    bench->GetDocuments().Open(Demo());
    Activate(ViewKind::Traces);
    Opens("menuFile");
    for (const char* item : {"fileSavePicture", "fileCopyPicture", "filePrint"}) {
        EXPECT_TRUE(Item(item).isEnabled()) << item;
    }
}

TEST_F(Pictures, ArePngFilesOfAnySize) {
    Analyse();
    for (const ViewKind kind : {ViewKind::Traces, ViewKind::Spectrum, ViewKind::Maps}) {
        const std::string file = folder.Path("view" + std::to_string(static_cast<int>(kind)) + ".png");
        Activate(kind);
        Size(PictureFormat::Png, 1501, 903, 150);
        user.ChoosesFile(file);
        Item("fileSavePicture").trigger();

        const QImage image(QString::fromStdString(file));
        EXPECT_EQ(image.size(), QSize(1501, 903));
        // 150 dots per inch of 0.0254 m.
        EXPECT_EQ(image.dotsPerMeterX(), 5906);
        EXPECT_GT(ColouredPixels(image), 1000) << file;
    }
}

TEST_F(Pictures, AreSvgDrawingsWithTextsAsTexts) {
    Analyse();
    const std::pair<ViewKind, const char*> cases[] = {
        {ViewKind::Traces, ">Fp1<"}, {ViewKind::Spectrum, "Fp1"}, {ViewKind::Maps, "µV"}};
    for (const auto& [kind, text] : cases) {
        Activate(kind);
        Size(PictureFormat::Svg, 1200, 700);
        user.ChoosesFile(folder.Path("view.svg"));
        Item("fileSavePicture").trigger();

        const std::string svg = folder.Read("view.svg");
        EXPECT_TRUE(Holds(svg, "width=\"1200\"")) << text;
        EXPECT_TRUE(Holds(svg, text)) << text;
    }
}

TEST_F(Pictures, ArePdfPagesOfTheirSize) {
    Analyse();
    Activate(ViewKind::Maps);
    Size(PictureFormat::Pdf, 960, 480);
    user.ChoosesFile(folder.Path("maps.pdf"));
    Item("fileSavePicture").trigger();

    // Points of 1/72 inch.
    EXPECT_TRUE(Holds(folder.Read("maps.pdf"), "/MediaBox [0 0 720.000000 360.000000]"));
}

TEST_F(Pictures, AreOnWhitePaperAlsoWhenTheWindowsAreDark) {
    Analyse();
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    bench->Window().setPalette(dark);
    for (const ViewKind kind : {ViewKind::Traces, ViewKind::Spectrum, ViewKind::Maps}) {
        review::CopyPicture(Shown(kind));
        const QImage& image = services.clipboard.Images().back();
        EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() - 1), QColor(Qt::white));
        EXPECT_EQ(View(kind).palette().color(QPalette::Window), QColor(Qt::black));
    }
}

TEST_F(Pictures, LeaveTheViewAsItIs) {
    Analyse();
    for (const ViewKind kind : {ViewKind::Traces, ViewKind::Spectrum, ViewKind::Maps}) {
        TheChild& view = View(kind);
        test::WaitUntilIdle();
        const QRect place = view.geometry();
        const QImage before = view.grab().toImage();
        Activate(kind);
        Size(PictureFormat::Png, 2000, 1600);
        user.ChoosesFile(folder.Path("view.png"));
        Item("fileSavePicture").trigger();
        test::WaitUntilIdle();
        EXPECT_EQ(view.geometry(), place);
        EXPECT_TRUE(view.grab().toImage() == before) << view.GetChildName();
    }
}

TEST_F(Pictures, AreNamedAfterRecordingAndView) {
    Analyse();
    Activate(ViewKind::Spectrum);
    Size(PictureFormat::Svg, 400, 300);
    user.ChoosesFile(std::nullopt);
    Item("fileSavePicture").trigger();

    ASSERT_EQ(user.FileRequests().size(), 1U);
    EXPECT_EQ(user.FileRequests()[0].question.name, "demo_spectrum.svg");
    EXPECT_EQ(user.FileRequests()[0].question.filter,
              "SVG drawings|*.svg|PNG pictures|*.png|PDF documents|*.pdf");
}

TEST_F(Pictures, HaveTheFormatThatTheFilesEndingSays) {
    Start(Demo());
    Activate(ViewKind::Traces);
    Size(PictureFormat::Png, 400, 300);
    user.ChoosesFile(folder.Path("traces.pdf"));
    Item("fileSavePicture").trigger();
    EXPECT_TRUE(folder.Read("traces.pdf").starts_with("%PDF-"));
}

TEST_F(Pictures, ThatCannotBeWrittenAreToldAndMayGoElsewhere) {
    Start(Demo());
    Activate(ViewKind::Traces);
    const std::string nowhere = folder.Path("none/traces.png");
    Size(PictureFormat::Png, 400, 300);
    user.ChoosesFile(nowhere).AnswersMessage(owl::kIdOk).ChoosesFile(folder.Path("traces.png"));
    Item("fileSavePicture").trigger();

    ASSERT_EQ(user.Messages().size(), 1U);
    EXPECT_THAT(user.Messages()[0].text, testing::StartsWith(nowhere + ": "));
    EXPECT_TRUE(std::filesystem::exists(folder.Path("traces.png")));
}

TEST_F(Pictures, RememberFormatUnitAndResolutionButNotTheSize) {
    Start(Demo());
    Activate(ViewKind::Traces);
    Size(PictureFormat::Pdf, 800, 600, 300);
    user.ChoosesFile(folder.Path("traces.pdf"));
    Item("fileSavePicture").trigger();

    user.Meets<review::PictureDialog>([&](review::PictureDialog& form) {
        EXPECT_EQ(form.Settings().format, PictureFormat::Pdf);
        EXPECT_EQ(form.Settings().resolution, 300);
        EXPECT_EQ(form.Settings().width, View(ViewKind::Traces).width());
        form.reject();
    });
    Item("fileSavePicture").trigger();
}

TEST_F(Pictures, AreCopiedTwiceAsFineAsTheScreen) {
    Start(Demo());
    Activate(ViewKind::Traces);
    Item("fileCopyPicture").trigger();

    const QSize shown = View(ViewKind::Traces).size();
    ASSERT_EQ(services.clipboard.Images().size(), 1U);
    EXPECT_EQ(services.clipboard.Images()[0].size(), shown * 2);
    EXPECT_EQ(bench->Window().ShownText(), "In the clipboard: a picture of " +
                                               std::to_string(2 * shown.width()) + " × " +
                                               std::to_string(2 * shown.height()) + " pixels");
}

TEST_F(Pictures, ArePrintedOnOnePage) {
    Analyse();
    for (const ViewKind kind : {ViewKind::Traces, ViewKind::Spectrum, ViewKind::Maps}) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(folder.Path("page.pdf")));
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageOrientation(QPageLayout::Landscape);
        review::PrintPage(Shown(kind), printer);

        const std::string pdf = folder.Read("page.pdf");
        EXPECT_TRUE(Holds(pdf, "/MediaBox [0 0 842.000000 595.000000]"));
        EXPECT_TRUE(Holds(pdf, "/Count 1\n"));
        EXPECT_GT(pdf.size(), 20'000U);
    }
}

TEST_F(Pictures, AreNotPrintedWhenTheUserCancels) {
    Start(Demo());
    Activate(ViewKind::Traces);
    user.Meets<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
    Item("filePrint").trigger();
    EXPECT_EQ(user.DialogsShown(), 1);
}

TEST_F(Pictures, ThatCannotBePrintedAreTold) {
    Start(Demo());
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    const std::string nowhere = folder.Path("none/page.pdf");
    printer.setOutputFileName(QString::fromStdString(nowhere));
    try {
        review::PrintPage(Shown(ViewKind::Traces), printer);
        FAIL() << "printed to a folder that is not there";
    } catch (const std::runtime_error& error) {
        EXPECT_THAT(error.what(), testing::StartsWith(nowhere + ": "));
    }
}

} // namespace
