#include "plot/render/canvas_renderer.h"

#include <QColor>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPen>
#include <QPolygonF>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>
#include <filesystem>

namespace norvo {
namespace {

constexpr double kScreenDpi = 96.0;

// Maps user coordinates of the current scale into the target rectangle.
struct Mapper {
    UserScale scale;
    QRectF target;

    double x(double ux) const {
        const double span = scale.right - scale.left;
        return span == 0 ? target.left()
                         : target.left() + (ux - scale.left) / span * target.width();
    }
    double y(double uy) const {
        const double span = scale.bottom - scale.top;
        return span == 0 ? target.top() : target.top() + (uy - scale.top) / span * target.height();
    }
    QPointF point(double ux, double uy) const { return {x(ux), y(uy)}; }
    double lengthX(double ux) const {
        const double span = scale.right - scale.left;
        return span == 0 ? 0 : std::fabs(ux / span * target.width());
    }
};

}  // namespace

QColor ToQColor(Colour c) {
    return QColor((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF);
}

void EnsureRenderingApplication() {
    if (QCoreApplication::instance()) return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "norvo";
    static char* argv[] = {name, nullptr};
    // Lives until the process ends; destroying it during static teardown is not safe.
    new QGuiApplication(argc, argv);
}

QString ResolveFontFamily(const std::string& face) {
    if (face.empty() || face == kPlotFontFace) return QStringLiteral("Liberation Sans");
    return QString::fromStdString(face);
}

QFont PlotFont(const FontStyle& style, double scale) {
    QFont font(ResolveFontFamily(style.face));
    const double px = style.sizePoints * kScreenDpi / 72.0 * scale;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(px))));
    font.setItalic(style.italic);
    font.setUnderline(style.underline);
    font.setBold(style.bold);
    font.setKerning(false);
    return font;
}

void PaintCommands(QPainter& painter, const std::vector<DrawCommand>& commands, int nominalWidthPx,
                   int nominalHeightPx, const QRectF& target) {
    painter.save();
    painter.setClipRect(target);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    // Text and pens grow with the target against the nominal picture.
    const double k = std::min(target.width() / std::max(1, nominalWidthPx),
                              target.height() / std::max(1, nominalHeightPx));

    Mapper map{UserScale{}, target};
    PenStyle penStyle = PenStyle::Solid;
    int penWidth = 1;
    Colour fillColour = kBlack;
    FillStyle fillStyle = FillStyle::Transparent;
    Colour backColour = kWhite;

    auto makePen = [&](Colour colour) {
        QPen pen(ToQColor(colour));
        pen.setWidthF(std::max(1.0, penWidth * k));
        pen.setStyle(penStyle == PenStyle::Dashed ? Qt::DashLine : Qt::SolidLine);
        pen.setCapStyle(Qt::FlatCap);
        pen.setJoinStyle(Qt::MiterJoin);
        return pen;
    };

    for (const auto& c : commands) {
        switch (c.op) {
            case DrawOp::Scale:
                map.scale = {c.x1, c.y1, c.x2, c.y2};
                break;
            case DrawOp::Clear:
                painter.fillRect(target, ToQColor(c.colour));
                break;
            case DrawOp::Line:
                painter.setPen(makePen(c.colour));
                painter.drawLine(map.point(c.x1, c.y1), map.point(c.x2, c.y2));
                break;
            case DrawOp::Box:
                painter.setPen(makePen(c.colour));
                painter.setBrush(Qt::NoBrush);
                painter.drawRect(QRectF(map.point(c.x1, c.y1), map.point(c.x2, c.y2)).normalized());
                break;
            case DrawOp::FilledBox:
                painter.fillRect(QRectF(map.point(c.x1, c.y1), map.point(c.x2, c.y2)).normalized(),
                                 ToQColor(c.colour));
                break;
            case DrawOp::Circle: {
                painter.setPen(makePen(c.colour));
                if (fillStyle == FillStyle::Solid) {
                    painter.setBrush(ToQColor(fillColour));
                } else {
                    painter.setBrush(Qt::NoBrush);
                }
                const double r = map.lengthX(c.x2);
                painter.drawEllipse(map.point(c.x1, c.y1), r, r);
                break;
            }
            case DrawOp::Polyline: {
                QPolygonF poly;
                for (const auto& p : c.points) poly << map.point(p.x, p.y);
                painter.setPen(makePen(c.colour));
                painter.setBrush(Qt::NoBrush);
                painter.drawPolyline(poly);
                break;
            }
            case DrawOp::Polygon: {
                QPolygonF poly;
                for (const auto& p : c.points) poly << map.point(p.x, p.y);
                painter.setPen(makePen(c.colour));
                if (fillStyle == FillStyle::Solid) {
                    painter.setBrush(ToQColor(fillColour));
                } else {
                    painter.setBrush(Qt::NoBrush);
                }
                painter.drawPolygon(poly);
                break;
            }
            case DrawOp::SetFill:
                fillColour = c.colour;
                fillStyle = c.fill;
                break;
            case DrawOp::SetPen:
                penStyle = c.pen;
                penWidth = c.width;
                break;
            case DrawOp::SetBackColour:
                backColour = c.colour;
                break;
            case DrawOp::SetForeColour:
            case DrawOp::SetFont:
                break;  // Print carries its own font and colour
            case DrawOp::Print: {
                const QFont font = PlotFont(c.font, k);
                painter.save();
                painter.setFont(font);
                painter.setPen(ToQColor(c.colour));
                painter.translate(map.point(c.x1, c.y1));
                if (c.font.angleTenths != 0) painter.rotate(-c.font.angleTenths / 10.0);
                // The position is the text's top left corner.
                const QFontMetricsF metrics(font, painter.device());
                painter.drawText(QPointF(0, metrics.ascent()), QString::fromStdString(c.text));
                painter.restore();
                break;
            }
        }
    }
    (void)backColour;
    painter.restore();
}

void PaintCanvas(QPainter& painter, const ChartCanvas& canvas, const QRectF& target) {
    PaintCommands(painter, canvas.commands(), canvas.widthPx(), canvas.heightPx(), target);
}

void PaintImage(QPainter& painter, const CanvasImage& image, const QRectF& target) {
    if (!image.commands) return;
    PaintCommands(painter, *image.commands, image.widthPx, image.heightPx, target);
}

QImage RenderCanvas(const ChartCanvas& canvas, int widthPx, int heightPx) {
    EnsureRenderingApplication();
    const int w = widthPx > 0 ? widthPx : canvas.widthPx();
    const int h = heightPx > 0 ? heightPx : canvas.heightPx();
    QImage image(w, h, QImage::Format_RGB32);
    // 96 dots per inch, so that font metrics match the screen's.
    image.setDotsPerMeterX(3780);
    image.setDotsPerMeterY(3780);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintCanvas(painter, canvas, QRectF(0, 0, w, h));
    painter.end();
    return image;
}

PlotFileFormat PlotFormatForPath(const std::string& path) {
    std::string ext = std::filesystem::path(path).extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(),
                   [](unsigned char ch) { return static_cast<char>(std::tolower(ch)); });
    if (ext == ".png") return PlotFileFormat::Png;
    if (ext == ".svg") return PlotFileFormat::Svg;
    if (ext == ".pdf") return PlotFileFormat::Pdf;
    return PlotFileFormat::Bmp;
}

bool SavePlot(const ChartCanvas& canvas, const std::string& path, int widthPx, int heightPx) {
    const int w = widthPx > 0 ? widthPx : canvas.widthPx();
    const int h = heightPx > 0 ? heightPx : canvas.heightPx();
    const QString file = QString::fromStdString(path);
    EnsureRenderingApplication();
    switch (PlotFormatForPath(path)) {
        case PlotFileFormat::Png:
            return RenderCanvas(canvas, w, h).save(file, "PNG");
        case PlotFileFormat::Bmp:
            return RenderCanvas(canvas, w, h).save(file, "BMP");
        case PlotFileFormat::Svg: {
            {
                // QSvgGenerator reports no write errors; check the folder beforehand.
                const auto parent = std::filesystem::path(path).parent_path();
                if (!parent.empty() && !std::filesystem::is_directory(parent)) return false;
            }
            QSvgGenerator svg;
            svg.setFileName(file);
            svg.setSize(QSize(w, h));
            svg.setViewBox(QRect(0, 0, w, h));
            svg.setResolution(static_cast<int>(kScreenDpi));
            svg.setTitle(QStringLiteral("Norvo II plot"));
            QPainter painter;
            if (!painter.begin(&svg)) return false;
            PaintCanvas(painter, canvas, QRectF(0, 0, w, h));
            return painter.end() && std::filesystem::exists(path);
        }
        case PlotFileFormat::Pdf: {
            QPdfWriter pdf(file);
            pdf.setResolution(static_cast<int>(kScreenDpi));
            pdf.setPageSize(QPageSize(QSizeF(w * 72.0 / kScreenDpi, h * 72.0 / kScreenDpi),
                                      QPageSize::Point, QString(), QPageSize::ExactMatch));
            pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
            QPainter painter;
            if (!painter.begin(&pdf)) return false;
            const QRect vp = painter.viewport();
            PaintCanvas(painter, canvas, QRectF(vp));
            return painter.end() && std::filesystem::exists(path);
        }
    }
    return false;
}

}  // namespace norvo
