#include "chart/chart_canvas.h"

#include "base/checked.h"

namespace norvo {

double EstimatedTextWidthPoints(double sizePoints, std::size_t characters) {
    return sizePoints * 0.5 * static_cast<double>(characters);
}

double EstimatedTextWidthPoints(double sizePoints, const std::string& text) {
    return EstimatedTextWidthPoints(sizePoints, text.size());
}

ChartCanvas::ChartCanvas(int widthPx, int heightPx) {
    setPixelSize(widthPx, heightPx);
}

void ChartCanvas::setPixelSize(int widthPx, int heightPx) {
    widthPx_ = widthPx > 0 ? widthPx : 1;
    heightPx_ = heightPx > 0 ? heightPx : 1;
}

std::vector<DrawCommand>& ChartCanvas::mutableCommands() {
    // An image taken earlier shares the list; give this canvas its own copy before changing it.
    if (commands_.use_count() > 1)
        commands_ = std::make_shared<std::vector<DrawCommand>>(*commands_);
    return *commands_;
}

void ChartCanvas::push(DrawCommand c) {
    mutableCommands().push_back(std::move(c));
}

void ChartCanvas::Scale(double left, double top, double right, double bottom) {
    scale_ = {CheckFinite(left), CheckFinite(top), CheckFinite(right), CheckFinite(bottom)};
    DrawCommand c;
    c.op = DrawOp::Scale;
    c.x1 = left;
    c.y1 = top;
    c.x2 = right;
    c.y2 = bottom;
    push(std::move(c));
}

void ChartCanvas::Clear() {
    DrawCommand c;
    c.op = DrawOp::Clear;
    c.colour = backColour_;
    // Whatever was drawn before is covered: drop it so that redrawn plots do not pile up.
    auto& list = mutableCommands();
    list.clear();
    list.push_back(c);
    appendState();
    currentX_ = scale_.left;
    currentY_ = scale_.top;
}

void ChartCanvas::Line(double x1, double y1, double x2, double y2, Colour colour) {
    DrawCommand c;
    c.op = DrawOp::Line;
    c.x1 = CheckFinite(x1);
    c.y1 = CheckFinite(y1);
    c.x2 = CheckFinite(x2);
    c.y2 = CheckFinite(y2);
    c.colour = colour;
    push(std::move(c));
    currentX_ = x2;
    currentY_ = y2;
}

void ChartCanvas::Box(double x1, double y1, double x2, double y2, Colour colour) {
    DrawCommand c;
    c.op = DrawOp::Box;
    c.x1 = CheckFinite(x1);
    c.y1 = CheckFinite(y1);
    c.x2 = CheckFinite(x2);
    c.y2 = CheckFinite(y2);
    c.colour = colour;
    push(std::move(c));
}

void ChartCanvas::FilledBox(double x1, double y1, double x2, double y2, Colour colour) {
    DrawCommand c;
    c.op = DrawOp::FilledBox;
    c.x1 = CheckFinite(x1);
    c.y1 = CheckFinite(y1);
    c.x2 = CheckFinite(x2);
    c.y2 = CheckFinite(y2);
    c.colour = colour;
    push(std::move(c));
}

void ChartCanvas::Circle(double x, double y, double radius) {
    Circle(x, y, radius, foreColour_);
}

void ChartCanvas::Circle(double x, double y, double radius, Colour colour) {
    DrawCommand c;
    c.op = DrawOp::Circle;
    c.x1 = CheckFinite(x);
    c.y1 = CheckFinite(y);
    c.x2 = CheckFinite(radius);
    c.colour = colour;
    push(std::move(c));
}

void ChartCanvas::Polyline(const std::vector<UserPoint>& points, Colour colour) {
    if (points.size() < 2) return;
    for (const auto& p : points) {
        CheckFinite(p.x);
        CheckFinite(p.y);
    }
    DrawCommand c;
    c.op = DrawOp::Polyline;
    c.points = points;
    c.colour = colour;
    push(std::move(c));
}

void ChartCanvas::Polygon(const std::vector<UserPoint>& points, Colour colour) {
    if (points.size() < 3) return;
    for (const auto& p : points) {
        CheckFinite(p.x);
        CheckFinite(p.y);
    }
    DrawCommand c;
    c.op = DrawOp::Polygon;
    c.points = points;
    c.colour = colour;
    push(std::move(c));
}

void ChartCanvas::SetFill(Colour colour, FillStyle style) {
    fillColour_ = colour;
    fillStyle_ = style;
    DrawCommand c;
    c.op = DrawOp::SetFill;
    c.colour = colour;
    c.fill = style;
    push(std::move(c));
}

void ChartCanvas::SetPen(PenStyle style, int width) {
    penStyle_ = style;
    penWidth_ = width < 1 ? 1 : width;
    DrawCommand c;
    c.op = DrawOp::SetPen;
    c.pen = penStyle_;
    c.width = penWidth_;
    push(std::move(c));
}

void ChartCanvas::SetForeColour(Colour colour) {
    foreColour_ = colour;
    DrawCommand c;
    c.op = DrawOp::SetForeColour;
    c.colour = colour;
    push(std::move(c));
}

void ChartCanvas::SetBackColour(Colour colour) {
    backColour_ = colour;
    DrawCommand c;
    c.op = DrawOp::SetBackColour;
    c.colour = colour;
    push(std::move(c));
}

void ChartCanvas::SetFont(const FontStyle& font) {
    font_ = font;
    DrawCommand c;
    c.op = DrawOp::SetFont;
    c.font = font;
    push(std::move(c));
}

void ChartCanvas::MoveTo(double x, double y) {
    currentX_ = CheckFinite(x);
    currentY_ = CheckFinite(y);
}

void ChartCanvas::Print(const std::string& text) {
    DrawCommand c;
    c.op = DrawOp::Print;
    c.x1 = currentX_;
    c.y1 = currentY_;
    c.text = text;
    c.font = font_;
    c.colour = foreColour_;
    push(std::move(c));
    currentX_ = scale_.left;
    currentY_ += PointsToUserY(font_.sizePoints * 1.15);
}

CanvasImage ChartCanvas::Image() const {
    return {commands_, widthPx_, heightPx_};
}

void ChartCanvas::PutImage(const CanvasImage& image) {
    // A picture covers the whole surface, so the list becomes the stored one, followed by
    // this canvas's own state so that later drawing continues as before.
    if (image.commands) {
        commands_ = std::make_shared<std::vector<DrawCommand>>(*image.commands);
    } else {
        commands_ = std::make_shared<std::vector<DrawCommand>>();
    }
    appendState();
}

void ChartCanvas::appendState() {
    auto& list = mutableCommands();
    DrawCommand s;
    s.op = DrawOp::Scale;
    s.x1 = scale_.left;
    s.y1 = scale_.top;
    s.x2 = scale_.right;
    s.y2 = scale_.bottom;
    list.push_back(s);
    DrawCommand p;
    p.op = DrawOp::SetPen;
    p.pen = penStyle_;
    p.width = penWidth_;
    list.push_back(p);
    DrawCommand f;
    f.op = DrawOp::SetFill;
    f.colour = fillColour_;
    f.fill = fillStyle_;
    list.push_back(f);
    DrawCommand fc;
    fc.op = DrawOp::SetForeColour;
    fc.colour = foreColour_;
    list.push_back(fc);
    DrawCommand bc;
    bc.op = DrawOp::SetBackColour;
    bc.colour = backColour_;
    list.push_back(bc);
    DrawCommand font;
    font.op = DrawOp::SetFont;
    font.font = font_;
    list.push_back(font);
}

void ChartCanvas::Reset() {
    commands_ = std::make_shared<std::vector<DrawCommand>>();
    scale_ = {};
    penStyle_ = PenStyle::Solid;
    penWidth_ = 1;
    fillColour_ = kBlack;
    fillStyle_ = FillStyle::Transparent;
    foreColour_ = kBlack;
    backColour_ = kWhite;
    font_ = {};
    currentX_ = currentY_ = 0;
}

double ChartCanvas::PointsToUserX(double points) const {
    const double px = points * 96.0 / 72.0;
    return px / widthPx_ * (scale_.right - scale_.left);
}

double ChartCanvas::PointsToUserY(double points) const {
    const double px = points * 96.0 / 72.0;
    return px / heightPx_ * (scale_.bottom - scale_.top);
}

UserPoint ChartCanvas::PixelToUser(double px, double py, double viewWidthPx,
                                   double viewHeightPx) const {
    if (viewWidthPx <= 0 || viewHeightPx <= 0) return {scale_.left, scale_.top};
    return {scale_.left + px / viewWidthPx * (scale_.right - scale_.left),
            scale_.top + py / viewHeightPx * (scale_.bottom - scale_.top)};
}

std::vector<DrawCommand> ChartCanvas::commandsOf(DrawOp op) const {
    std::vector<DrawCommand> out;
    for (const auto& c : *commands_) {
        if (c.op == op) out.push_back(c);
    }
    return out;
}

}  // namespace norvo
