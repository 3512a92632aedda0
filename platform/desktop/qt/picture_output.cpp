#include "platform/desktop/qt/picture_output.h"

#include <QBuffer>
#include <QImage>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>

#include "platform/desktop/qt/box_owner.h"
#include "platform/desktop/qt/canvas.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr const char* kTooLarge = "The picture is too large for the memory.";
constexpr int kPointsPerInch = 72;

QString named(const std::string& text) {
    return QString::fromStdString(text);
}

/// A printer may also be a file, whose name the user should read.
std::string printFault(const QPrinter& printer) {
    const QString file = printer.outputFileName();
    const QString target = file.isEmpty() ? printer.printerName() : file;
    return "The picture could not be printed to " + target.toStdString() + ".";
}

void drawOn(QPrinter& printer, QPainter& painter, const DrawPicture& draw) {
    const double scale = static_cast<double>(printer.resolution()) / kPointsPerInch;
    painter.scale(scale, scale);
    QtCanvas canvas(painter);
    const QSizeF page = printer.pageRect(QPrinter::Point).size();
    try {
        draw(canvas, {page.width(), page.height()});
    } catch (...) {
        printer.abort();  // else half a page comes out
        throw;
    }
}

}  // namespace

std::string QtPictureOutput::png(CanvasSize size, const DrawPicture& draw) {
    QImage image(qRound(size.width), qRound(size.height), QImage::Format_RGB32);
    if (image.isNull())
        throw Error(kTooLarge);
    {
        QPainter painter(&image);
        QtCanvas canvas(painter);
        draw(canvas, size);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
        throw Error(kTooLarge);
    return bytes.toStdString();
}

std::string QtPictureOutput::pdf(CanvasSize size, const DrawPicture& draw) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(kPointsPerInch);
        writer.setPageSize(QPageSize(QSizeF(size.width, size.height), QPageSize::Point));
        writer.setPageMargins(QMarginsF());
        QPainter painter(&writer);
        QtCanvas canvas(painter);
        draw(canvas, size);
    }
    return bytes.toStdString();
}

bool QtPictureOutput::print(const std::string& title, const DrawPicture& draw) {
    const PointerForBox pointer;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(named(title));
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog box(&printer, boxOwner());
    if (box.exec() != QDialog::Accepted)
        return false;
    QPainter painter;
    if (!painter.begin(&printer))
        throw Error(printFault(printer));
    drawOn(printer, painter, draw);
    if (!painter.end() || printer.printerState() == QPrinter::Error)
        throw Error(printFault(printer));
    return true;
}

}  // namespace pelk
