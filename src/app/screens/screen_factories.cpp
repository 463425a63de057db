// The table of screens and editors the shell can open. Each screen adds its line here.
#include "data/screens/frm_flt.h"
#include "data/screens/frm_import.h"
#include "data/screens/frm_lfq.h"
#include "data/screens/frm_scenario.h"
#include "data/screens/frm_spc.h"
#include "data/screens/record_editor.h"
#include "growth/screens/frm_appledoorn.h"
#include "growth/screens/frm_elefan1.h"
#include "growth/screens/frm_gin_methods.h"
#include "growth/screens/frm_laa_analysis.h"
#include "growth/screens/frm_lmax.h"
#include "growth/screens/frm_phi_prime.h"
#include "growth/screens/frm_pw_plot.h"
#include "growth/screens/frm_shepherd.h"
#include "growth/screens/frm_vbgf_plot.h"
#include "modal/screens/frm_bhattac_vrd.h"
#include "modal/screens/frm_linking.h"
#include "modal/screens/frm_normsep_simplex.h"
#include "mortality/screens/frm_ault_erh.h"
#include "mortality/screens/frm_bh_mort.h"
#include "mortality/screens/frm_catch_curve.h"
#include "mortality/screens/frm_hoenig.h"
#include "mortality/screens/frm_jones_zalinge.h"
#include "mortality/screens/frm_munro2.h"
#include "mortality/screens/frm_pauly_m.h"
#include "mortality/screens/frm_rik_efa.h"
#include "numerics/screens/frm_regress.h"
#include "samples/screens/frm_adjust_smooth.h"
#include "samples/screens/frm_correct_convert.h"
#include "samples/screens/frm_merge_pool.h"
#include "samples/screens/frm_raise_sample_wt.h"
#include "selection/screens/frm_gill_net.h"
#include "selection/screens/frm_probability2.h"
#include "selection/screens/frm_recruit.h"
#include "stock/screens/frm_simulate.h"
#include "stock/screens/frm_thompson.h"
#include "stock/screens/frm_vpa1.h"
#include "stock/screens/frm_vpa2.h"
#include "stock/screens/frm_yr_knife.h"
#include "stock/screens/frm_yr_selection.h"
#include "widgets/shell_context.h"

namespace norvo::gui {

const std::map<std::string, ScreenFactory>& ScreenFactories() {
    static const std::map<std::string, ScreenFactory> factories = {
        {"frmAppledoorn",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmAppledoorn(ctx, parent);
         }},
        {"frmLAAAnalysis",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmLaaAnalysis(ctx, parent);
         }},
        {"frmLmax",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmLmax(ctx, parent); }},
        {"frmPhiPrime",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmPhiPrime(ctx, parent);
         }},
        {"frmPWPlot",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmPwPlot(ctx, parent); }},
        {"frmJonesZalinge",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmJonesZalinge(ctx, parent);
         }},
        {"frmBHMort",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmBhMort(ctx, parent); }},
        {"frmAultErh",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmAultErh(ctx, parent);
         }},
        {"frmHoenig",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmHoenig(ctx, parent); }},
        {"frmPaulyM",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmPaulyM(ctx, parent); }},
        {"frmRikEfa",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmRikEfa(ctx, parent); }},
        {"frmGulland",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmGulland(ctx, parent);
         }},
        {"frmMunro",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmMunro(ctx, parent); }},
        {"frmFaben",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmFaben(ctx, parent); }},
        {"frmMunro2",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmMunro2(ctx, parent); }},
        {"frmELEFAN1",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmElefan1(ctx, parent);
         }},
        {"frmShepherd",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmShepherd(ctx, parent);
         }},
        {"frmVBGFPlot",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmVbgfPlot(ctx, parent);
         }},
        {"frmImport",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmImport(ctx, parent); }},
        {"frmCatchCurve",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmCatchCurve(ctx, parent);
         }},
        {"frmGillNet",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmGillNet(ctx, parent);
         }},
        {"frmRecruit",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmRecruit(ctx, parent);
         }},
        {"frmProbability2",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmProbability2(ctx, parent);
         }},
        {"frmBhattacVRD",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmBhattacVRD(ctx, parent);
         }},
        {"frmNORMSEP_Simplex",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmNormsepSimplex(ctx, parent);
         }},
        {"frmLinking",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmLinking(ctx, parent);
         }},
        {"frmRegress",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmRegress(ctx, parent);
         }},
        {"frmMerge",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmMerge(ctx, parent); }},
        {"frmPool",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmPool(ctx, parent); }},
        {"frmAdjust",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmAdjust(ctx, parent); }},
        {"frmCorrect",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmCorrect(ctx, parent);
         }},
        {"frmSmooth",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmSmooth(ctx, parent); }},
        {"frmConvert",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmConvert(ctx, parent);
         }},
        {"frmRaise",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmRaise(ctx, parent); }},
        {"frmSampleWt",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmSampleWt(ctx, parent);
         }},
        {"frmSimulate",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmSimulate(ctx, parent);
         }},
        {"frmYRKnife",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmYRKnife(ctx, parent);
         }},
        {"frm2DYRKnife",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new Frm2DYRKnife(ctx, parent);
         }},
        {"frmYRSelection",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmYRSelection(ctx, parent);
         }},
        {"frm2DYRSelection",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new Frm2DYRSelection(ctx, parent);
         }},
        {"frmVPA1",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmVpa1(ctx, parent); }},
        {"frmVPA2",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* { return new FrmVpa2(ctx, parent); }},
        {"frmThompson",
         [](ShellContext& ctx, QWidget* parent) -> QWidget* {
             return new FrmThompson(ctx, parent);
         }},
    };
    return factories;
}

const std::map<std::string, EditorFactory>& EditorFactories() {
    static const std::map<std::string, EditorFactory> factories = {
        {"LFQ",
         [](ShellContext& ctx, QWidget* parent) -> DataEditor* { return new FrmLfq(ctx, parent); }},
        {"ULF", [](ShellContext& c, QWidget* p) { return MakeRecordEditor("ULF", c, p); }},
        {"VLF", [](ShellContext& c, QWidget* p) { return MakeRecordEditor("VLF", c, p); }},
        {"LAA", [](ShellContext& c, QWidget* p) { return MakeRecordEditor("LAA", c, p); }},
        {"GIN", [](ShellContext& c, QWidget* p) { return MakeRecordEditor("GIN", c, p); }},
        {"CAA", [](ShellContext& c, QWidget* p) { return MakeRecordEditor("CAA", c, p); }},
        {"MSD", [](ShellContext& c, QWidget* p) { return MakeRecordEditor("MSD", c, p); }},
        {"PRB", [](ShellContext& c, QWidget* p) { return MakeRecordEditor("PRB", c, p); }},
        {"XYF", [](ShellContext& c, QWidget* p) { return MakeRecordEditor("XYF", c, p); }},
        {"VAL", [](ShellContext& c, QWidget* p) { return MakeRecordEditor("VAL", c, p); }},
        {"SPC", [](ShellContext& c, QWidget* p) -> DataEditor* { return new FrmSpc(c, p); }},
        {"FLT", [](ShellContext& c, QWidget* p) -> DataEditor* { return new FrmFlt(c, p); }},
        {"SCE", [](ShellContext& c, QWidget* p) -> DataEditor* { return new FrmScenario(c, p); }},
    };
    return factories;
}

}  // namespace norvo::gui
