#include "selection/screens/frm_logits.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/outcome.h"
#include "selection/selection.h"
#include "selection/selection_plot.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

struct FrmLogits::State {
    SelectionInput* input = nullptr;
    std::string unit;
    LogitPoints points;
    LogitFrame frame;
    RegressionResult fit;
    bool fitted = false;
    Proceed onProceed;
};

FrmLogits::FrmLogits(ShellContext& ctx, SelectionInput& input, const std::string& unit,
                     Proceed proceed, QWidget* parent)
    : QWidget(parent, Qt::Window), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmLogits");
    setWindowTitle(kLogitsTitle);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    st_->input = &input;
    st_->unit = unit;
    st_->onProceed = std::move(proceed);
    st_->points = MakeLogitPoints(input);

    auto* layout = new QHBoxLayout(this);
    plot_ = new PlotView(this);
    plot_->setMinimumSize(480, 360);
    layout->addWidget(plot_, 1);
    auto* side = new QVBoxLayout;
    auto* form = new QFormLayout;
    const char* captions[] = {"Y-intercept (a):", "Slope (b):", "Correlation coef. (r):"};
    for (int i = 0; i < 3; ++i) {
        values_[i] = new QLabel(this);
        form->addRow(captions[i], values_[i]);
    }
    side->addLayout(form);
    auto* note = new QLabel(kSelClickNote, this);
    note->setWordWrap(true);
    note->setMaximumWidth(200);
    side->addWidget(note);
    side->addStretch();
    proceed_ = new QPushButton(kLogitsProceed, this);
    cancel_ = new QPushButton(kLogitsCancel, this);
    side->addWidget(proceed_);
    side->addWidget(cancel_);
    layout->addLayout(side);
    auto& dialogs = ctx_.dialogs;
    connect(proceed_, &QPushButton::clicked, this, Guarded(dialogs, [this] { this->proceed(); }));
    connect(cancel_, &QPushButton::clicked, this, Guarded(dialogs, [this] { close(); }));
    connect(plot_, &PlotView::clickedAt, this,
            Guarded(dialogs, [this](double x, double y) { clickPlot(x, y); }));
    connect(plot_, &PlotView::resized, this, Guarded(dialogs, [this] { DrawLogitsPoints(); }));
    DrawLogitsPoints();
    Regress1();
}

FrmLogits::~FrmLogits() = default;

bool FrmLogits::fitted() const {
    return st_->fitted;
}
int FrmLogits::selectedCount() const {
    return SelectedCount(st_->points);
}
double FrmLogits::pointX(int i) const {
    return st_->frame.at(st_->points.x[i], st_->points.logit[i]).x;
}
double FrmLogits::pointY(int i) const {
    return st_->frame.at(st_->points.x[i], st_->points.logit[i]).y;
}

void FrmLogits::DrawLogitsPoints() {
    st_->frame = DrawLogits(plot_->canvas(), st_->points, st_->input->firstPoint,
                            st_->fitted ? &st_->fit : nullptr, st_->unit);
    plot_->update();
}

void FrmLogits::Regress1() {
    const LogitFit logit = norvo::Regress1(st_->points);
    st_->fitted = ShowNotices(logit, ctx_.dialogs);
    proceed_->setEnabled(st_->fitted);
    if (!st_->fitted) {
        for (auto* v : values_) v->clear();
    } else {
        st_->fit = logit.fit;
        values_[0]->setText(NumberText(st_->fit.a(), "0.00"));
        values_[1]->setText(NumberText(st_->fit.b(), "0.00"));
        values_[2]->setText(NumberText(st_->fit.r(), "0.00"));
    }
    DrawLogitsPoints();
}

void FrmLogits::clickPlot(double x, double y) {
    const auto& pts = st_->points;
    int hit = -1;
    for (int i = pts.firstClass; i < static_cast<int>(pts.x.size()); ++i)
        if (std::abs(pointX(i) - x) <= 1 && std::abs(pointY(i) - y) <= 1) {
            hit = i;
            break;
        }
    if (hit < 0) {
        ctx_.dialogs.notify(
            {kSelNoSelectionText, kSelNoSelectionTitle, Buttons::Ok, Icon::Information});
        return;
    }
    if (!ShowNotices(TogglePoint(st_->points, hit), ctx_.dialogs)) return;
    DrawLogitsPoints();
    Regress1();
}

void FrmLogits::proceed() {
    if (!st_->fitted) return;
    const auto curve = LogisticCurve(*st_->input, st_->points, st_->fit.a(), st_->fit.b());
    auto done = st_->onProceed;
    close();
    if (done) done(curve);
}

}  // namespace norvo::gui
