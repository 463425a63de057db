#pragma once
// A drawing surface kept as a display list in user coordinates. Plots record lines, boxes,
// circles and text here; a renderer (plot/render) paints the list onto a widget, an image, an
// SVG or a printer at any pixel size. The list is the picture: tests read it directly.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace norvo {

// 24-bit colour, 0xRRGGBB.
using Colour = std::uint32_t;

inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kBlack = 0x000000;
inline constexpr Colour kRed = 0xFF0000;
inline constexpr Colour kGreen = 0x00FF00;
inline constexpr Colour kYellow = 0xFFFF00;
inline constexpr Colour kMagenta = 0xFF00FF;

constexpr Colour Rgb(int r, int g, int b) {
    return (Colour(r & 0xFF) << 16) | (Colour(g & 0xFF) << 8) | Colour(b & 0xFF);
}

enum class PenStyle { Solid, Dashed };
enum class FillStyle { Solid, Transparent };

inline constexpr const char* kPlotFontFace = "Arial";

// A text font: face, size in points, angle in tenths of a degree (900 reads upwards).
struct FontStyle {
    std::string face = kPlotFontFace;
    double sizePoints = 8.0;
    int angleTenths = 0;
    bool italic = false;
    bool underline = false;
    bool bold = false;
    bool operator==(const FontStyle&) const = default;
};

// Estimated width of a text in points: size x 0.5 x characters. All centring uses this
// estimate; real text is never measured, so every output device places text alike.
double EstimatedTextWidthPoints(double sizePoints, std::size_t characters);
double EstimatedTextWidthPoints(double sizePoints, const std::string& text);

enum class DrawOp {
    Scale,          // x1=left y1=top x2=right y2=bottom
    Clear,          // colour = background
    Line,           // x1 y1 x2 y2 colour
    Box,            // outline, x1 y1 x2 y2 colour
    FilledBox,      // x1 y1 x2 y2 colour
    Circle,         // centre x1 y1, radius x2 (x units), colour = outline
    SetFill,        // colour, fill
    SetPen,         // pen, width
    SetForeColour,  // colour
    SetBackColour,  // colour
    SetFont,        // font
    Print,          // text at x1 y1 (top left), font and colour as current
    Polyline,       // points, colour, with the current pen
    Polygon,        // closed points, outline colour with the current pen, current fill
};

struct UserPoint {
    double x = 0;
    double y = 0;
    bool operator==(const UserPoint&) const = default;
};

struct DrawCommand {
    DrawOp op = DrawOp::Line;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Colour colour = kBlack;
    PenStyle pen = PenStyle::Solid;
    int width = 1;
    FillStyle fill = FillStyle::Transparent;
    std::string text;
    FontStyle font;
    std::vector<UserPoint> points;
};

// The user coordinate system: the picture's top left is (left, top), its bottom right is
// (right, bottom). bottom > top means y grows downwards.
struct UserScale {
    double left = 0, top = 0, right = 100, bottom = 100;
    bool operator==(const UserScale&) const = default;
};

// A stored copy of a finished picture (see ChartCanvas::Image / PutImage).
struct CanvasImage {
    std::shared_ptr<const std::vector<DrawCommand>> commands;
    int widthPx = 0;
    int heightPx = 0;
    bool empty() const { return !commands || commands->empty(); }
};

class ChartCanvas {
  public:
    // Nominal picture size in pixels at 96 dots per inch. Text sizes relate to it: a renderer
    // drawing at another size scales text and pen widths in proportion.
    static constexpr int kDefaultWidthPx = 800;
    static constexpr int kDefaultHeightPx = 600;
    static constexpr int kTwipsPerPixel = 15;

    ChartCanvas() = default;
    ChartCanvas(int widthPx, int heightPx);

    void setPixelSize(int widthPx, int heightPx);
    int widthPx() const { return widthPx_; }
    int heightPx() const { return heightPx_; }
    long widthTwips() const { return long(widthPx_) * kTwipsPerPixel; }
    long heightTwips() const { return long(heightPx_) * kTwipsPerPixel; }

    // Primitives, in user coordinates.
    void Scale(double left, double top, double right, double bottom);
    void Clear();
    void Line(double x1, double y1, double x2, double y2, Colour colour);
    void Line(double x1, double y1, double x2, double y2) { Line(x1, y1, x2, y2, foreColour_); }
    void Box(double x1, double y1, double x2, double y2, Colour colour);
    void FilledBox(double x1, double y1, double x2, double y2, Colour colour);
    // Outline in the fore colour (or `colour`), filled with the current fill; radius in x units.
    void Circle(double x, double y, double radius);
    void Circle(double x, double y, double radius, Colour colour);
    // Joined line segments through the points with the current pen.
    void Polyline(const std::vector<UserPoint>& points, Colour colour);
    // A closed polygon: outlined in `colour` with the current pen, filled with the current fill.
    void Polygon(const std::vector<UserPoint>& points, Colour colour);
    void SetFill(Colour colour, FillStyle style);
    void SetPen(PenStyle style, int width);
    void SetForeColour(Colour colour);
    void SetBackColour(Colour colour);
    void SetFont(const FontStyle& font);
    void MoveTo(double x, double y);
    // Text with its top left corner at the current position; then the position goes to the
    // start of the next line (left edge of the scale, one text height lower).
    void Print(const std::string& text);

    // A copy of the finished picture.
    CanvasImage Image() const;
    // Replaces the picture by a stored one; the drawing state (scale, pen, fill, colours,
    // font) stays as it was on this canvas.
    void PutImage(const CanvasImage& image);
    void PutImage(const ChartCanvas& other) { PutImage(other.Image()); }
    // Drops everything drawn and resets the state (a fresh canvas of the same size).
    void Reset();

    // Current state.
    const UserScale& scale() const { return scale_; }
    PenStyle penStyle() const { return penStyle_; }
    int penWidth() const { return penWidth_; }
    Colour fillColour() const { return fillColour_; }
    FillStyle fillStyle() const { return fillStyle_; }
    Colour foreColour() const { return foreColour_; }
    Colour backColour() const { return backColour_; }
    const FontStyle& font() const { return font_; }
    double currentX() const { return currentX_; }
    double currentY() const { return currentY_; }

    // Conversions between points and user units along each axis (signed as the scale).
    double PointsToUserX(double points) const;
    double PointsToUserY(double points) const;
    // User coordinates of a pixel position in the nominal picture (for mouse mapping).
    UserPoint PixelToUser(double px, double py, double viewWidthPx, double viewHeightPx) const;

    // The display list.
    const std::vector<DrawCommand>& commands() const { return *commands_; }
    // Commands of one kind, for tests and read-outs.
    std::vector<DrawCommand> commandsOf(DrawOp op) const;

  private:
    std::vector<DrawCommand>& mutableCommands();
    void push(DrawCommand c);
    void appendState();

    int widthPx_ = kDefaultWidthPx;
    int heightPx_ = kDefaultHeightPx;
    // Shared with images taken from this canvas until the next change (copy on write).
    std::shared_ptr<std::vector<DrawCommand>> commands_ =
        std::make_shared<std::vector<DrawCommand>>();
    UserScale scale_;
    PenStyle penStyle_ = PenStyle::Solid;
    int penWidth_ = 1;
    Colour fillColour_ = kBlack;
    FillStyle fillStyle_ = FillStyle::Transparent;
    Colour foreColour_ = kBlack;
    Colour backColour_ = kWhite;
    FontStyle font_;
    double currentX_ = 0;
    double currentY_ = 0;
};

}  // namespace norvo
