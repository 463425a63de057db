#pragma once
// The routine nearly every plot uses for its text: a temporary "Arial" font at an angle and a
// size, the text printed at a position, and the canvas's earlier font put back.
#include <string>

#include "chart/chart_canvas.h"

namespace norvo {

// Prints `text` with its start at (x, y) in user coordinates, at `angleTenths` tenths of a
// degree (0 horizontal, 900 reading upwards) and `sizePoints`. Only the current position of
// the canvas changes; its font is restored afterwards.
void DrawRotatedText(ChartCanvas& canvas, const std::string& text, int angleTenths,
                     double sizePoints, double x, double y);

}  // namespace norvo
