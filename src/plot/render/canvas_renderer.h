#pragma once
// Paints a chart canvas's display list with QtGui: onto a widget, a printer, an image (BMP,
// PNG), an SVG drawing or a PDF page, at any size. Pen widths scale with the target against the
// canvas's nominal pixel size; text keeps its point size at the device's resolution, so it stays
// legible in a small window and does not swell in a large one.
#include <QColor>
#include <QFont>
#include <QImage>
#include <QRectF>
#include <QString>
#include <string>

#include "chart/chart_canvas.h"

class QPainter;

namespace norvo {

// A canvas colour (0xRRGGBB) as Qt's.
QColor ToQColor(Colour c);

// Makes sure a QGuiApplication exists (fonts need one); a headless program gets an offscreen
// one on first use. Called by RenderCanvas and SavePlot.
void EnsureRenderingApplication();

// The family actually used for a face name: "Arial" is drawn with the metric-compatible
// Liberation Sans so that text looks alike on every machine.
QString ResolveFontFamily(const std::string& face);
// A font for `style`, its pixel size being the points at 96 dots per inch times `scale`.
QFont PlotFont(const FontStyle& style, double scale = 1.0);

// Paints the list into `target` (device coordinates of the painter). The painter's state is
// saved and restored.
void PaintCommands(QPainter& painter, const std::vector<DrawCommand>& commands, int nominalWidthPx,
                   int nominalHeightPx, const QRectF& target);
void PaintCanvas(QPainter& painter, const ChartCanvas& canvas, const QRectF& target);
void PaintImage(QPainter& painter, const CanvasImage& image, const QRectF& target);

// The picture as an image of the given size (0: the canvas's own size).
QImage RenderCanvas(const ChartCanvas& canvas, int widthPx = 0, int heightPx = 0);

enum class PlotFileFormat { Bmp, Png, Svg, Pdf };
// The format of a path, by its extension; anything unknown is a bitmap.
PlotFileFormat PlotFormatForPath(const std::string& path);

// Writes the picture to `path` in the format of its extension, at `widthPx` x `heightPx`
// (0: the canvas's size). False when the file can't be written.
bool SavePlot(const ChartCanvas& canvas, const std::string& path, int widthPx = 0,
              int heightPx = 0);

}  // namespace norvo
