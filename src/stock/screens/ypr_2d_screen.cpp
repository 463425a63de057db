#include "stock/screens/ypr_2d_screen.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cmath>

#include "numerics/validators.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

Ypr2DScreen::Ypr2DScreen(ShellContext& ctx, const char* ratioCaption, const char* hint,
                         QWidget* parent)
    : QWidget(parent), ctx_(ctx) {
    auto* layout = new QHBoxLayout(this);
    auto* left = new QVBoxLayout;
    plot_ = new PlotView(this);
    plot_->setObjectName("pic2DYR");
    plot_->setMinimumSize(520, 400);
    left->addWidget(plot_, 1);
    auto* hintLabel = new QLabel(hint, this);
    hintLabel->setWordWrap(true);
    left->addWidget(hintLabel);
    scroll_ = new QScrollBar(Qt::Horizontal, this);
    scroll_->setObjectName("hsrl2DYRKnife");
    scroll_->setRange(1, 999);
    scroll_->setSingleStep(1);
    scroll_->setPageStep(10);
    left->addWidget(scroll_);
    layout->addLayout(left, 1);

    auto* side = new QVBoxLayout;
    grid_ = new QGridLayout;
    const char* captions[] = {ratioCaption, "M/K :", "E-10 :", "E-50 :", "E-max :"};
    for (int i = 0; i < 5; ++i) {
        txt_[size_t(i)] = new QLineEdit(this);
        txt_[size_t(i)]->setObjectName(QString("txt2DYRKnife%1").arg(i));
        if (i >= 2) txt_[size_t(i)]->setReadOnly(true);
        grid_->addWidget(new QLabel(captions[i], this), i, 0);
        grid_->addWidget(txt_[size_t(i)], i, 1);
    }
    side->addLayout(grid_);
    side->addStretch();
    auto* cmdPrint = new QPushButton("&Print", this);
    auto* cmdClose = new QPushButton("&Close", this);
    side->addWidget(cmdPrint);
    side->addWidget(cmdClose);
    layout->addLayout(side);

    auto& d = ctx_.dialogs;
    connect(txt_[0], &QLineEdit::editingFinished, this, Guarded(d, [this] { leaveRatio(); }));
    connect(txt_[1], &QLineEdit::editingFinished, this, Guarded(d, [this] { leaveMk(); }));
    connect(scroll_, &QScrollBar::valueChanged, this, Guarded(d, [this](int v) { scrolled(v); }));
    connect(cmdPrint, &QPushButton::clicked, this, Guarded(d, [this] { print(); }));
    connect(cmdClose, &QPushButton::clicked, this, Guarded(d, [this] { window()->close(); }));
    connect(plot_, &PlotView::resized, this, Guarded(d, [this] { redraw(); }));
}

void Ypr2DScreen::start(float mk) {
    mk_ = mk;
    ratio_ = float(kYrStartRatio);
    SetBoxNumber(txt_[1], mk_, "0.000");
    SetBoxNumber(txt_[0], ratio_, "#0.000");
    {
        const QSignalBlocker block(scroll_);
        scroll_->setValue(int(std::lround(ratio_ * 1000.0)));
    }
    redraw();
}

std::optional<double> Ypr2DScreen::forcedNumber(QLineEdit* box, double low, double high) {
    const auto v = BoxNumber(box);
    if (!v || box->text().trimmed().isEmpty()) {
        ctx_.dialogs.notify({kInvalidNumber, kValidatorTitle, Buttons::Ok, Icon::Warning});
        box->setFocus();
        return std::nullopt;
    }
    const double forced = Clamp(*v, low, high);
    SetBoxNumber(box, forced, "0.000");
    return forced;
}

void Ypr2DScreen::leaveRatio() {
    const auto v = forcedNumber(txt_[0], kYrRatioLow, kYrRatioHigh);
    if (!v) return;
    ratio_ = float(*v);
    {
        const QSignalBlocker block(scroll_);
        scroll_->setValue(int(std::lround(*v * 1000.0)));
    }
    redraw();
}

void Ypr2DScreen::leaveMk() {
    const auto v = forcedNumber(txt_[1], kYrMkLow, kYrMkHigh);
    if (!v) return;
    // The forced number itself goes on, not its three-decimal text.
    mk_ = float(*v);
    yPrimeMax_ = topAfterChange();
    redraw();
}

void Ypr2DScreen::scrolled(int value) {
    ratio_ = float(value / 1000.0);
    SetBoxNumber(txt_[0], ratio_, "#0.000");
    redraw();
}

void Ypr2DScreen::redraw() {
    const auto drawn = analyse();
    if (!drawn) {
        lastReport_.reset();
        for (int i = 2; i < 5; ++i) txt_[size_t(i)]->clear();
        plot_->canvas().Reset();
        plot_->refresh();
        return;
    }
    DrawYprPlot(plot_->canvas(), drawn->plot);
    plot_->refresh();
    SetBoxNumber(txt_[2], drawn->plot.e10, "#0.000");
    SetBoxNumber(txt_[3], drawn->plot.e50, "#0.000");
    SetBoxNumber(txt_[4], drawn->plot.eMax, "#0.000");
    lastReport_ = drawn->report;
}

void Ypr2DScreen::print() {
    if (!lastReport_) return;
    PrintReport(Ypr2DReport(*lastReport_), plot_->canvas(), ctx_.dialogs, ctx_.printer);
}

}  // namespace norvo::gui
