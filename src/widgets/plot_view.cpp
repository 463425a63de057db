#include "widgets/plot_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>

#include "plot/render/canvas_renderer.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

PlotView::PlotView(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(160, 120);
}

void PlotView::setPicture(const CanvasImage& image) {
    if (image.widthPx > 0 && image.heightPx > 0)
        canvas_.setPixelSize(image.widthPx, image.heightPx);
    canvas_.PutImage(image);
    refresh();
}

void PlotView::storeClean() {
    clean_ = canvas_.Image();
}

void PlotView::restoreClean() {
    canvas_.PutImage(clean_);
    refresh();
}

void PlotView::refresh() {
    paintFailed_ = false;
    update();
}

UserPoint PlotView::toUser(const QPointF& pos) const {
    return canvas_.PixelToUser(pos.x(), pos.y(), width(), height());
}

void PlotView::attachSelection(PointSelection* selection) {
    selection_ = selection;
    lastActive_ = -1;
}

void PlotView::setHotCursor(bool hot) {
    hot_ = hot;
    setCursor(hot ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

QSize PlotView::sizeHint() const {
    return {canvas_.widthPx(), canvas_.heightPx()};
}

void PlotView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    // A picture that failed to paint stays blank, reported once, until it changes.
    if (paintFailed_) return;
    paintFailed_ = !RunPainting([&] { PaintCanvas(painter, canvas_, QRectF(rect())); });
}

void PlotView::mouseMoveEvent(QMouseEvent* event) {
    RunCommand([&] {
        const UserPoint p = toUser(event->position());
        if (selection_) {
            setHotCursor(selection_->mouseMove(p.x, p.y));
            if (selection_->active() != lastActive_) {
                lastActive_ = selection_->active();
                Q_EMIT activePointChanged(lastActive_);
            }
        }
        Q_EMIT mouseMovedTo(p.x, p.y);
    });
}

void PlotView::mousePressEvent(QMouseEvent* event) {
    RunCommand([&] {
        const UserPoint p = toUser(event->position());
        if (selection_ && event->button() == Qt::LeftButton) {
            selection_->mouseMove(p.x, p.y);
            if (selection_->click()) Q_EMIT pointToggled(selection_->active());
        }
        Q_EMIT clickedAt(p.x, p.y);
    });
}

void PlotView::resizeEvent(QResizeEvent* event) {
    if (tracksSize_ && event->size().width() > 0 && event->size().height() > 0) {
        canvas_.setPixelSize(event->size().width(), event->size().height());
    }
    QWidget::resizeEvent(event);
    paintFailed_ = false;
    Q_EMIT resized();  // also while the program lays out: the owner guards its handler
}

}  // namespace norvo::gui
