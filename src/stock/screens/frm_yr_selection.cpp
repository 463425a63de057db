#include "stock/screens/frm_yr_selection.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "data/sample_readers.h"
#include "numerics/validators.h"
#include "stock/relative_ypr_plot.h"
#include "widgets/command_boundary.h"
#include "widgets/data_grid.h"
#include "widgets/number_box.h"

namespace norvo::gui {

namespace {

constexpr double kLooLow = 0.01, kLooHigh = 99999999.99;

}  // namespace

FrmYRSelection::FrmYRSelection(ShellContext& ctx, QWidget* parent)
    : YprSurfaceScreen(ctx, true, parent) {
    setObjectName("frmYRSelection");
    setWindowTitle(kYrSelectionCaption);
    loo_ = new QLineEdit(this);
    loo_->setObjectName("txtYRKnife1");
    boxes()->addWidget(new QLabel("Loo :", this), 1, 0);
    boxes()->addWidget(loo_, 1, 1);
    const char* names[] = {"L-50 :", "L-75 :"};
    for (int i = 0; i < 2; ++i) {
        sel_[size_t(i)] = new QLineEdit(this);
        sel_[size_t(i)]->setObjectName(QString("txtSelection%1").arg(i));
        boxes()->addWidget(new QLabel(names[i], this), 2 + i, 0);
        boxes()->addWidget(sel_[size_t(i)], 2 + i, 1);
    }
    species_ = new QLabel(this);
    species_->setWordWrap(true);
    table_ = new DataGrid(this);
    table_->setObjectName("spdYR");
    table_->setMaxCols(2);
    table_->setMaxRows(0);
    table_->setColumnFormat(0, {true, 0.01, 99999999.99, 5});
    table_->setColumnFormat(1, {true, 0.0, 1.0, 8});
    table_->setColHeading(0, "ML");
    table_->setColHeading(1, "Selection");
    table_->setDisplayDecimals(3);
    table_->setMinimumHeight(160);
    cmdLoad_ = new QPushButton(kYrLoadCommand, this);
    auto* side = this->side();
    side->insertWidget(0, cmdLoad_);
    side->insertWidget(1, species_);
    side->insertWidget(2, table_);

    auto& d = ctx_.dialogs;
    connect(cmdLoad_, &QPushButton::clicked, this, Guarded(d, [this] {
                const auto path =
                    ctx_.dialogs.openFile({kYrOpenTitle, kYrPrbFilter, {}, "prb", {}, true});
                if (path) loadSelectionFile(*path);
            }));
    for (QLineEdit* box : {loo_, sel_[0], sel_[1]})
        connect(box, &QLineEdit::textEdited, this, Guarded(d, [this] { replot(); }));
    connect(table_, &DataGrid::edited, this, Guarded(d, [this] { replot(); }));
    replot();
}

bool FrmYRSelection::loadSelectionFile(const std::string& path) {
    const auto prb = ctx_.session.readPrb(path, ctx_.dialogs);
    if (!prb) return false;
    species_->setText(QString::fromStdString(prb->header.speciesname));
    const int n = int(prb->length.size());
    table_->setMaxRows(n);
    for (int r = 0; r < n; ++r) {
        table_->setValue(r, 0, prb->length[size_t(r)]);
        table_->setValue(r, 1, prb->probability[size_t(r)]);
    }
    if (n >= 2) {
        const OgiveLengths found = FindOgiveLengths(prb->length, prb->probability);
        SetBoxNumber(sel_[0], found.l50, "#0.00");
        SetBoxNumber(sel_[1], found.l75, "#0.00");
        if (loo_->text().isEmpty()) SetBoxNumber(loo_, double(prb->length.back()) * 1.05, "#0.00");
    }
    replot();
    return true;
}

void FrmYRSelection::tableRows(std::vector<float>& length, std::vector<float>& prob) const {
    for (int r = 0; r < table_->rowCount(); ++r) {
        const auto l = table_->value(r, 0), p = table_->value(r, 1);
        if (!l || !p) break;
        length.push_back(float(*l));
        prob.push_back(float(*p));
    }
}

bool FrmYRSelection::inputsReady() const {
    if (!YprSurfaceScreen::inputsReady()) return false;
    for (const QLineEdit* b : {loo_, sel_[0], sel_[1]})
        if (!b || b->text().trimmed().isEmpty()) return false;
    std::vector<float> length, prob;
    tableRows(length, prob);
    return length.size() >= 2;
}

std::optional<OgiveClasses> FrmYRSelection::classes() {
    std::vector<float> length, prob;
    tableRows(length, prob);
    const auto l50 = BoxNumber(sel_[0]), l75 = BoxNumber(sel_[1]), loo = BoxNumber(loo_);
    if (!l50 || !l75 || !loo) {
        ctx_.dialogs.notify({kInvalidNumber, kValidatorTitle, Buttons::Ok, Icon::Warning});
        return std::nullopt;
    }
    const OgiveClasses c = ClassesOfTable(length, float(*l50), float(*l75));
    if (!ShowNotices(CheckOgiveInputs(c, *mkValue(), float(*loo)), ctx_.dialogs))
        return std::nullopt;
    return c;
}

std::optional<std::vector<SurfaceRow>> FrmYRSelection::surfaceRows(bool biomass) {
    const auto c = classes();
    if (!c) return std::nullopt;
    return OgiveSurface(*c, *mkValue(), float(*BoxNumber(loo_)), biomass);
}

void FrmYRSelection::open2D() {
    const auto c = classes();
    if (!c) return;
    const float mk = *mkValue();
    const float loo = float(*BoxNumber(loo_));
    if (auto* screen = dynamic_cast<Frm2DYRSelection*>(ctx_.openScreen("frm2DYRSelection")))
        screen->activate(*c, mk, loo);
}

std::string FrmYRSelection::reportTitle() const {
    return kYrOgiveReportTitle;
}

Frm2DYRSelection::Frm2DYRSelection(ShellContext& ctx, QWidget* parent)
    : Ypr2DScreen(ctx, "L50/Loo :", kYr2DOgiveHint, parent) {
    setObjectName("frm2DYRSelection");
    setWindowTitle(kYr2DCaption);
    looBox_ = new QLineEdit(this);
    looBox_->setObjectName("txt2DYRKnife5");
    grid()->addWidget(new QLabel("Loo :", this), 5, 0);
    grid()->addWidget(looBox_, 5, 1);
    connect(looBox_, &QLineEdit::editingFinished, this,
            Guarded(ctx_.dialogs, [this] { leaveLoo(); }));
    start(1.0f);
}

void Frm2DYRSelection::activate(const OgiveClasses& classes, float mk, float loo) {
    classes_ = classes;
    loo_ = loo;
    mk_ = mk;
    SetBoxNumber(looBox_, loo_, "#0.00");
    yPrimeMax_ = topAfterChange();
    start(mk);
}

void Frm2DYRSelection::leaveLoo() {
    const auto v = BoxNumber(looBox_);
    if (!v || looBox_->text().trimmed().isEmpty()) {
        ctx_.dialogs.notify({kInvalidNumber, kValidatorTitle, Buttons::Ok, Icon::Warning});
        looBox_->setFocus();
        return;
    }
    loo_ = float(Clamp(*v, kLooLow, kLooHigh));
    SetBoxNumber(looBox_, loo_, "#0.00");
    yPrimeMax_ = topAfterChange();
    redraw();
}

float Frm2DYRSelection::topAfterChange() {
    if (classes_.n < 2 || !CheckOgiveInputs(classes_, mk_, loo_).ok()) return 1;
    return FindYPrimeMaxSelection(classes_, mk_, loo_);
}

std::optional<Ypr2DScreen::Drawn> Frm2DYRSelection::analyse() {
    // Opened without a table: nothing to draw until the surface screen hands one over.
    if (classes_.n == 0) return std::nullopt;
    const OgiveAnalysis r = AnalyseOgive(classes_, mk_, ratio_, loo_);
    if (!ShowNotices(r, ctx_.dialogs)) return std::nullopt;
    Drawn d;
    d.plot = {r.curveY, r.curveB, yPrimeMax_, r.e10, r.e50, r.eMax, r.yAtE10, r.bAtE50, r.yAtEmax};
    d.report.title = kYrOgiveReportTitle;
    d.report.ratioCaption = "L50/Loo :";
    d.report.ratio = ratio_;
    d.report.mk = mk_;
    d.report.loo = loo_;
    d.report.eMax = r.eMax;
    d.report.e10 = r.e10;
    d.report.e50 = r.e50;
    d.report.rows = r.report;
    return d;
}

}  // namespace norvo::gui
