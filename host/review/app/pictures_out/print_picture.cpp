// SPDX-License-Identifier: GPL-3.0-or-later
// Onto paper.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/pictures_out/view_picture.h"
#include "host/review/cli/output.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/painter_dc.h"
#include "host/toolkit/wait_cursor.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include <stdexcept>

namespace orvanta::review {

namespace {

constexpr double kDotsPerInch = 96;
constexpr double kFineness = 3; ///< pixels to 1/96 inch of what a view draws as pixels
constexpr int kHeading = 28;    ///< height in 1/96 inch

[[noreturn]] void Refuse(const QPrinter& printer) {
    const QString name =
        printer.outputFileName().isEmpty() ? printer.printerName() : printer.outputFileName();
    throw std::runtime_error(HostQText("printFailed", "%1: does not print (is it switched on and connected? "
                                                      "Another printer, or a PDF file, can be chosen)")
                                 .arg(name)
                                 .toStdString());
}

void DrawHeading(owl::TDC& dc, const std::string& title) {
    owl::TFont font;
    font.bold = true;
    dc.SelectFont(font);
    dc.TextOut({0, 0}, title);
}

} // namespace

void PrintPage(const ViewToShow& shown, QPrinter& printer) {
    const owl::WaitCursor wait;
    if (!printer.outputFileName().isEmpty()) {
        cli::CheckWritable(printer.outputFileName().toStdString());
    }
    printer.setCreator(QStringLiteral("Orvanta"));
    printer.setDocName(QString::fromStdString(shown.title));
    QPainter painter;
    if (!painter.begin(&printer)) {
        Refuse(printer);
    }
    const double dots = printer.resolution() / kDotsPerInch;
    painter.scale(dots, dots);
    const QSizeF page = printer.pageRect(QPrinter::Inch).size() * kDotsPerInch;
    {
        owl::PainterDC dc(painter);
        DrawHeading(dc, shown.title);
    }
    painter.translate(0, kHeading);
    {
        owl::PainterDC dc(painter);
        shown.view.DrawPicture(
            dc, {static_cast<int>(page.width()), static_cast<int>(page.height()) - kHeading}, kFineness);
    }
    if (!painter.end() || printer.printerState() == QPrinter::Error) {
        Refuse(printer);
    }
}

bool PrintPicture(HWND owner, const ViewToShow& shown) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(shown.view.width() > shown.view.height() ? QPageLayout::Landscape
                                                                        : QPageLayout::Portrait);
    QPrintDialog dialog(&printer, owner.Widget());
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    if (owl::CurrentModalGateway().RunModal(dialog) != owl::kIdOk) {
        return false;
    }
    PrintPage(shown, printer);
    return true;
}

} // namespace orvanta::review
