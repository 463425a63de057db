#include "chart/rotated_text.h"

namespace norvo {

void DrawRotatedText(ChartCanvas& canvas, const std::string& text, int angleTenths,
                     double sizePoints, double x, double y) {
    const FontStyle previous = canvas.font();
    FontStyle font;  // face "Arial", every other attribute plain
    font.sizePoints = sizePoints;
    font.angleTenths = angleTenths;
    canvas.SetFont(font);
    canvas.MoveTo(x, y);
    canvas.Print(text);
    canvas.SetFont(previous);
}

}  // namespace norvo
