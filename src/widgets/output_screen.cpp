#include "widgets/output_screen.h"

#include <QFont>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPrinter>
#include <QVBoxLayout>

#include "plot/render/canvas_renderer.h"
#include "widgets/plot_view.h"

namespace norvo::gui {
namespace {

QLabel* MakeLabel(const QString& text, QWidget* parent, int pixelSize, bool bold,
                  Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter) {
    auto* label = new QLabel(text, parent);
    QFont font(ResolveFontFamily(kPlotFontFace));
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    label->setFont(font);
    label->setAlignment(align);
    // Printed pages are white whatever the desktop's colours.
    label->setStyleSheet("color: black; background: transparent;");
    return label;
}

// Lays out a widget and its children top-down. A screen that was never shown gets no resize
// events, so its nested layouts would otherwise keep their children at the origin.
void LayOutTree(QWidget* widget) {
    if (auto* l = widget->layout()) {
        l->activate();
        l->setGeometry(widget->rect());
    }
    for (QWidget* child : widget->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        LayOutTree(child);
    }
}

}  // namespace

bool IsPrintToFile(const QPrinter* printer) {
    return printer && printer->outputFormat() == QPrinter::PdfFormat &&
           !printer->outputFileName().isEmpty();
}

OutputScreen::OutputScreen(PrinterSource printer, QWidget* parent)
    : QWidget(parent), printer_(std::move(printer)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(kPageWidth, kPageHeight);
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, Qt::white);
    setPalette(pal);

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(48, 40, 48, 40);
    page->setSpacing(4);
    const int sizes[] = {20, 13, 15};
    for (int i = 0; i < 3; ++i) {
        auto* h = MakeLabel({}, this, sizes[i], i != 1, Qt::AlignHCenter | Qt::AlignVCenter);
        h->setObjectName(QString("lblHeader%1").arg(i + 1));
        headers_.push_back(h);
        page->addWidget(h);
    }
    page->addSpacing(10);
    picOut_ = new PlotView(this);
    picOut_->setObjectName("picOut");
    picOut_->setTracksWidgetSize(false);  // the report shows the analysis's picture scaled
    // The plot keeps the 4:3 shape of the canvas across the page's width.
    const int plotWidth = kPageWidth - 96;
    picOut_->setFixedSize(plotWidth, plotWidth * 3 / 4);
    page->addWidget(picOut_, 0, Qt::AlignHCenter);
    page->addSpacing(12);
    values_ = new QWidget(this);
    new QHBoxLayout(values_);
    values_->layout()->setContentsMargins(0, 0, 0, 0);
    page->addWidget(values_);
    note_ = MakeLabel({}, this, 12, false);
    note_->setObjectName("Label3");
    note_->setWordWrap(true);
    page->addWidget(note_);
    page->addStretch(1);
}

QWidget* OutputScreen::buildColumn(bool results) {
    auto* column = new QWidget(values_);
    auto* grid = new QGridLayout(column);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(2);
    int row = 0;
    auto& labels = results ? lblResults_ : lblData_;
    const QString arrayName = results ? "lblResults" : "lblData";
    for (const auto& section : report_.sections) {
        if (section.results != results) continue;
        if (!section.heading.empty()) {
            auto* heading = MakeLabel(QString::fromStdString(section.heading), column, 13, true);
            heading->setObjectName(results ? "Label2" : "Label1");
            if (row > 0) grid->setRowMinimumHeight(row++, 6);
            grid->addWidget(heading, row++, 0, 1, 2);
        }
        for (const auto& field : section.fields) {
            grid->addWidget(MakeLabel(QString::fromStdString(field.caption), column, 12, false),
                            row, 0);
            auto* value = MakeLabel(QString::fromStdString(field.value), column, 12, false);
            value->setObjectName(QString("%1_%2").arg(arrayName).arg(labels.size()));
            labels.push_back(value);
            grid->addWidget(value, row++, 1);
        }
    }
    grid->setRowStretch(row, 1);
    grid->setColumnStretch(1, 1);
    return column;
}

void OutputScreen::fill(const ReportDescriptor& report) {
    report_ = report;
    setObjectName(QString::fromStdString(report.screenName));
    setWindowTitle(
        QString::fromStdString(report.caption.empty() ? report.header1 : report.caption));
    headers_[0]->setText(QString::fromStdString(report.header1));
    headers_[1]->setText(QString::fromStdString(report.header2));
    headers_[2]->setText(QString::fromStdString(report.header3));
    // Rebuild the value columns for this report.
    auto* row = values_->layout();
    while (auto* item = row->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    lblData_.clear();
    lblResults_.clear();
    row->addWidget(buildColumn(false));
    row->addWidget(buildColumn(true));
    note_->setText(QString::fromStdString(report.note));
}

void OutputScreen::setPicture(const CanvasImage& image) {
    picOut_->setPicture(image);
}

bool OutputScreen::printToFileChosen() const {
    return toFile_ && printer_ && toFile_(printer_());
}

void OutputScreen::printPage() {
    if (!printer_) return;
    if (QPrinter* printer = printer_()) printOn(*printer);
}

void OutputScreen::paintPage(QPainter& painter) {
    ensurePolished();
    LayOutTree(this);
    painter.save();
    painter.fillRect(rect(), Qt::white);
    // The page is painted from the screen's own layout, label by label, so that printers and
    // PDF files get real text and lines rather than a snapshot of pixels.
    for (QLabel* label : findChildren<QLabel*>()) {
        if (label->text().isEmpty() || !label->isVisibleTo(this)) continue;
        const QRect box(label->mapTo(this, QPoint(0, 0)), label->size());
        painter.setFont(label->font());
        painter.setPen(Qt::black);
        painter.drawText(
            box, static_cast<int>(label->alignment()) | (label->wordWrap() ? Qt::TextWordWrap : 0),
            label->text());
    }
    const QRect plot(picOut_->mapTo(this, QPoint(0, 0)), picOut_->size());
    PaintCanvas(painter, picOut_->canvas(), QRectF(plot));
    painter.restore();
}

bool OutputScreen::printOn(QPrinter& printer) {
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    const QRectF pageRect = printer.pageLayout().paintRectPixels(printer.resolution());
    const double scale = std::min(pageRect.width() / width(), pageRect.height() / height());
    painter.scale(scale, scale);
    paintPage(painter);
    return painter.end();
}

void OutputScreen::unload() {
    unloaded_ = true;
    close();
}

PlotSaver RenderedPlotSaver() {
    return
        [](const ChartCanvas& canvas, const std::string& path) { return SavePlot(canvas, path); };
}

PrintOutcome PrintReport(const ReportDescriptor& report, const ChartCanvas& canvas,
                         DialogService& dialogs, PrinterSource printer) {
    auto* screen = new OutputScreen(std::move(printer));
    return RunReport(report, canvas, *screen, dialogs, RenderedPlotSaver());
}

}  // namespace norvo::gui
