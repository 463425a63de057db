#pragma once
// A widget that shows a chart canvas, scaled to its size. It maps mouse positions to the
// canvas's user coordinates, shows the hand cursor over a hot point, and keeps a clean copy
// of the picture beneath overlays (a cursor line, a selected range). Its mouse and paint
// handlers, and the owners' slots they call, run through the command boundary with the
// program's dialogs.
#include <QWidget>

#include "chart/chart_canvas.h"
#include "chart/point_selection.h"

namespace norvo::gui {

class PlotView : public QWidget {
    Q_OBJECT
  public:
    explicit PlotView(QWidget* parent = nullptr);

    // The picture; draw on it, then call refresh() (or update()).
    ChartCanvas& canvas() { return canvas_; }
    const ChartCanvas& canvas() const { return canvas_; }
    // Repaints the picture, trying again when it failed to paint before.
    void refresh();
    // Shows a stored picture (replacing what is drawn).
    void setPicture(const CanvasImage& image);

    // Keeps a copy of the picture as it is now; restoreClean() puts it back and repaints,
    // which erases whatever was drawn over it since.
    void storeClean();
    void restoreClean();
    bool hasCleanCopy() const { return !clean_.empty(); }

    // User coordinates of a widget position.
    UserPoint toUser(const QPointF& pos) const;

    // Points that the mouse can pick: hovering one shows the hand cursor and emits
    // activePointChanged; clicking it toggles its flag and emits pointToggled. Not owned.
    void attachSelection(PointSelection* selection);
    // Hand cursor over a hot point, arrow elsewhere.
    void setHotCursor(bool hot);
    bool hotCursor() const { return hot_; }

    // When on (the default), the canvas's nominal size follows the widget's, so that text
    // shows at its true size; owners redraw on `resized`. Off, the picture is scaled.
    void setTracksWidgetSize(bool on) { tracksSize_ = on; }

    QSize sizeHint() const override;

  Q_SIGNALS:
    void resized();
    void mouseMovedTo(double x, double y);
    void clickedAt(double x, double y);
    // Index of the hovered point, -1 when none.
    void activePointChanged(int index);
    void pointToggled(int index);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    ChartCanvas canvas_;
    CanvasImage clean_;
    PointSelection* selection_ = nullptr;
    int lastActive_ = -1;
    bool hot_ = false;
    bool tracksSize_ = true;
    bool paintFailed_ = false;
};

}  // namespace norvo::gui
