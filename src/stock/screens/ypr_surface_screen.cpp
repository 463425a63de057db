#include "stock/screens/ypr_surface_screen.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

#include "stock/relative_ypr_plot.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

YprSurfaceScreen::YprSurfaceScreen(ShellContext& ctx, bool ogive, QWidget* parent)
    : QWidget(parent), ctx_(ctx), ogive_(ogive) {
    style_ = YprSurfaceStyle(ogive, false);
    build();
}

void YprSurfaceScreen::build() {
    auto* layout = new QHBoxLayout(this);
    plot_ = new PlotView(this);
    plot_->setObjectName("chtYR");
    plot_->setMinimumSize(520, 420);
    layout->addWidget(plot_, 1);

    side_ = new QVBoxLayout;
    boxes_ = new QGridLayout;
    mk_ = new QLineEdit(this);
    SetBoxNumber(mk_, 1.0, "0.00");
    mk_->setObjectName("txtYRKnife");
    boxes_->addWidget(new QLabel("M/K :", this), 0, 0);
    boxes_->addWidget(mk_, 0, 1);
    side_->addLayout(boxes_);

    auto* footer = new QGroupBox(this);
    auto* fg = new QGridLayout(footer);
    const char* captions[] = {"E :", ogive_ ? "L50/Loo :" : "Lc/Loo :", kYrYieldLabel};
    for (int i = 0; i < 3; ++i) {
        auto* caption = new QLabel(captions[i], footer);
        if (i == 2) valueCaption_ = caption;
        readout_[size_t(i)] = new QLabel(kYrUnknown, footer);
        fg->addWidget(caption, i, 0);
        fg->addWidget(readout_[size_t(i)], i, 1);
    }
    side_->addWidget(footer);

    auto* options = new QGroupBox(this);
    auto* og = new QVBoxLayout(options);
    for (int i = 0; i < 2; ++i) {
        opt_[size_t(i)] = new QRadioButton(kYrOptions[size_t(i)], options);
        opt_[size_t(i)]->setObjectName(QString("optYRKnife%1").arg(i));
        og->addWidget(opt_[size_t(i)]);
    }
    opt_[0]->setChecked(true);
    for (int i = 0; i < 4; ++i) {
        chk_[size_t(i)] = new QCheckBox(kYrChecks[size_t(i)], options);
        chk_[size_t(i)]->setObjectName(QString("chkYRKnife%1").arg(i));
        og->addWidget(chk_[size_t(i)]);
    }
    side_->addWidget(options);
    side_->addStretch();
    cmd2D_ = new QPushButton(kYr2DCommand, this);
    cmdPrint_ = new QPushButton(kYrPrintCommand, this);
    auto* cmdClose = new QPushButton(kYrCloseCommand, this);
    for (auto* b : {cmd2D_, cmdPrint_, cmdClose}) side_->addWidget(b);
    layout->addLayout(side_);

    spin_ = new QTimer(this);
    spin_->setInterval(kYrSpinMs);
    auto& d = ctx_.dialogs;
    connect(spin_, &QTimer::timeout, this, [this] {
        if (!RunCommand(ctx_.dialogs, [this] { spinTick(); })) chk_[0]->setChecked(false);
    });
    connect(mk_, &QLineEdit::textEdited, this, Guarded(d, [this] {
                updateEnabled();
                if (mkValue()) replot();
            }));
    for (auto* o : opt_)
        connect(o, &QRadioButton::toggled, this, Guarded(d, [this](bool on) {
                    if (on) replot();
                }));
    connect(chk_[0], &QCheckBox::toggled, this, Guarded(d, [this](bool on) {
                if (on) {
                    spin_->start();
                } else {
                    spin_->stop();
                }
            }));
    for (int i = 1; i < 4; ++i)
        connect(chk_[size_t(i)], &QCheckBox::toggled, this, Guarded(d, [this] { replot(); }));
    connect(cmd2D_, &QPushButton::clicked, this, Guarded(d, [this] {
                if (inputsReady()) open2D();
            }));
    connect(cmdPrint_, &QPushButton::clicked, this, Guarded(d, [this] { print(); }));
    connect(cmdClose, &QPushButton::clicked, this, Guarded(d, [this] { window()->close(); }));
    connect(plot_, &PlotView::mouseMovedTo, this,
            Guarded(d, [this](double x, double y) { UpdateFooter(x, y); }));
    connect(plot_, &PlotView::resized, this, Guarded(d, [this] {
                if (grid_.rows() > 0) {
                    DrawSurface(plot_->canvas(), grid_, style_);
                    plot_->refresh();
                }
            }));
}

bool YprSurfaceScreen::biomass() const {
    return opt_[1]->isChecked();
}

std::optional<float> YprSurfaceScreen::mkValue() const {
    const auto v = BoxNumber(mk_);
    if (!v || !(*v > 0) || *v > 3.4e38) return std::nullopt;
    return float(*v);
}

bool YprSurfaceScreen::inputsReady() const {
    return mkValue().has_value();
}

void YprSurfaceScreen::updateEnabled() {
    const bool ready = inputsReady();
    cmd2D_->setEnabled(ready);
    cmdPrint_->setEnabled(ready && grid_.rows() > 0);
}

void YprSurfaceScreen::replot() {
    updateEnabled();
    if (!inputsReady()) return;
    const bool b = biomass();
    const int rotation = style_.rotationDeg;
    style_ = YprSurfaceStyle(ogive_, b);
    style_.rotationDeg = rotation;
    style_.floor = chk_[1]->isChecked();
    style_.ceiling = chk_[2]->isChecked();
    style_.isopleths = chk_[3]->isChecked();
    valueCaption_->setText(b ? kYrBiomassLabel : kYrYieldLabel);
    const auto rows = surfaceRows(b);
    if (!rows) {
        grid_ = {};
        plot_->canvas().Reset();
        plot_->refresh();
        updateEnabled();
        return;
    }
    grid_ = YprSurfaceGrid(*rows);
    DrawSurface(plot_->canvas(), grid_, style_);
    plot_->refresh();
    updateEnabled();
}

void YprSurfaceScreen::spinTick() {
    style_.rotationDeg = NextSpinAngle(style_.rotationDeg);
    if (grid_.rows() == 0) return;
    DrawSurface(plot_->canvas(), grid_, style_);
    plot_->refresh();
}

void YprSurfaceScreen::UpdateFooter(double x, double y) {
    const auto node = grid_.rows() > 0 ? SurfaceNodeAt(grid_, style_, {x, y}) : std::nullopt;
    if (!node || node->row < 1 || node->col < 1) {
        for (auto* l : readout_) l->setText(kYrUnknown);
        return;
    }
    const int n = grid_.rows();
    const char* format = n > 10 ? "#0.00" : "#0.0";
    readout_[0]->setText(NumberText(double(node->row) / n, format));
    readout_[1]->setText(NumberText(double(node->col) / grid_.cols(), format));
    readout_[2]->setText(
        NumberText(grid_.z[size_t(node->row - 1)][size_t(node->col - 1)], "#0.000"));
}

void YprSurfaceScreen::print() {
    const auto mk = mkValue();
    if (!mk || grid_.rows() == 0) return;
    // The printed picture has white walls; the screen keeps its own.
    ChartCanvas canvas(plot_->canvas().widthPx(), plot_->canvas().heightPx());
    SurfaceStyle style = style_;
    style.whiteWalls = true;
    DrawSurface(canvas, grid_, style);
    PrintReport(Ypr3DReport(reportTitle(), *mk), canvas, ctx_.dialogs, ctx_.printer);
}

}  // namespace norvo::gui
