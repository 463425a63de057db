#include "stock/screens/frm_yr_knife.h"

#include "stock/relative_ypr_knife.h"

namespace norvo::gui {

FrmYRKnife::FrmYRKnife(ShellContext& ctx, QWidget* parent) : YprSurfaceScreen(ctx, false, parent) {
    setObjectName("frmYRKnife");
    setWindowTitle(kYrKnifeCaption);
    replot();
}

std::optional<std::vector<SurfaceRow>> FrmYRKnife::surfaceRows(bool biomass) {
    return KnifeSurface(*mkValue(), biomass);
}

void FrmYRKnife::open2D() {
    const float mk = *mkValue();
    const float top = YPrimeMaxFromSurface(mk);
    if (auto* screen = dynamic_cast<Frm2DYRKnife*>(ctx_.openScreen("frm2DYRKnife")))
        screen->activate(mk, top);
}

std::string FrmYRKnife::reportTitle() const {
    return kYrKnife3DReportTitle;
}

Frm2DYRKnife::Frm2DYRKnife(ShellContext& ctx, QWidget* parent)
    : Ypr2DScreen(ctx, "Lc/Loo :", kYr2DHint, parent) {
    setObjectName("frm2DYRKnife");
    setWindowTitle(kYr2DCaption);
    activate(1.0f, YPrimeMaxFromSurface(1.0f));
}

void Frm2DYRKnife::activate(float mk, float yPrimeMax) {
    yPrimeMax_ = yPrimeMax;
    start(mk);
}

float Frm2DYRKnife::topAfterChange() {
    return FindYPrimeMaxKnife(mk_);
}

std::optional<Ypr2DScreen::Drawn> Frm2DYRKnife::analyse() {
    const KnifeAnalysis r = AnalyseKnife(mk_, ratio_);
    if (!ShowNotices(r, ctx_.dialogs)) return std::nullopt;
    Drawn d;
    d.plot = {r.curveY, r.curveB, yPrimeMax_, r.e10, r.e50, r.eMax, r.yAtE10, r.bAtE50, r.yAtEmax};
    d.report.title = kYrKnife2DReportTitle;
    d.report.ratioCaption = "Lc/Loo :";
    d.report.ratio = ratio_;
    d.report.mk = mk_;
    d.report.eMax = r.eMax;
    d.report.e10 = r.e10;
    d.report.e50 = r.e50;
    d.report.rows = r.report;
    return d;
}

}  // namespace norvo::gui
