#include "app/command_registry.h"

namespace norvo {

namespace {

using K = CommandKind;

CommandEntry Make(std::string parent, std::string control, int index, std::string caption, K kind) {
    CommandEntry e;
    e.parent = std::move(parent);
    e.control = std::move(control);
    e.index = index;
    e.caption = std::move(caption);
    e.kind = kind;
    return e;
}
CommandEntry Menu(std::string parent, std::string control, std::string caption, int index = -1) {
    return Make(std::move(parent), std::move(control), index, std::move(caption), K::Menu);
}
CommandEntry Popup(std::string control, std::string caption) {
    CommandEntry e = Make("", std::move(control), -1, std::move(caption), K::Menu);
    e.popup = true;
    return e;
}
CommandEntry Sep(std::string parent, std::string control, int index = -1) {
    return Make(std::move(parent), std::move(control), index, "-", K::Separator);
}
CommandEntry Item(std::string parent, std::string control, std::string caption, K kind,
                  int index = -1) {
    return Make(std::move(parent), std::move(control), index, std::move(caption), kind);
}
CommandEntry Open(std::string parent, std::string control, int index, std::string caption,
                  std::string screen, std::string kind = {}, std::string text = {},
                  std::string title = kGateTitleInvalidData) {
    CommandEntry e =
        Make(std::move(parent), std::move(control), index, std::move(caption), K::Screen);
    e.screen = std::move(screen);
    e.requiredKind = std::move(kind);
    if (!e.requiredKind.empty()) {
        e.gateTitle = std::move(title);
        e.gateText = std::move(text);
    }
    return e;
}

std::vector<CommandEntry> Build() {
    std::vector<CommandEntry> t;
    auto add = [&t](CommandEntry e) { t.push_back(std::move(e)); };

    // File
    add(Menu("", kMenuFile, "&File"));
    add(Item(kMenuFile, "mnuFileNew", "&New", K::Shell));
    add(Item(kMenuFile, "mnuFileOpen", "&Open", K::Shell));
    add(Item(kMenuFile, "mnuFileClose", "&Close", K::Routed));
    add(Sep(kMenuFile, "mnuFileBar0"));
    add(Item(kMenuFile, "mnuFileSave", "&Save", K::Routed));
    add(Item(kMenuFile, "mnuFileSaveAs", "Save &As...", K::Routed));
    add(Sep(kMenuFile, "mnuFileBar1"));
    add(Item(kMenuFile, "mnuFilePrintSetup", "Print Set&up", K::Shell));
    add(Item(kMenuFile, "mnuFilePrint", "&Print...", K::Routed));
    add(Sep(kMenuFile, "mnuFileBar2"));
    add(Menu(kMenuFile, "FileManipulateMenu", "Sample &Manipulation"));
    const char* sm[] = {"&Merge Files",           "&Correct using Probabilities of Capture",
                        "&Adjust Class Interval", "&Smooth Data File",
                        "&Pool Samples",          "C&onvert Files",
                        "&Raise Samples"};
    const char* smScreens[] = {"frmMerge", "frmCorrect", "frmAdjust", "frmSmooth",
                               "frmPool",  "frmConvert", "frmRaise"};
    for (int i = 0; i < 7; ++i)
        add(Open("FileManipulateMenu", "SMMenu", i, sm[i], smScreens[i], "LFQ",
                 kGateTextSampleManipulation, kGateTitleNoActiveFile));
    add(Open(kMenuFile, "ImportMenu", -1, "&Import Old Norvo L/F Files...", "frmImport"));
    add(Item(kMenuFile, "mnuExport", "&Export Data...", K::Routed));
    add(Sep(kMenuFile, "mnuFileBar3"));
    for (int i = 0; i < 3; ++i) add(Item(kMenuFile, "mnuFileMRU", "", K::Inert, i));
    add(Sep(kMenuFile, "mnuFileBar4"));
    add(Item(kMenuFile, "mnuFileExit", "E&xit", K::Shell));

    // Edit
    add(Menu("", kMenuEdit, "&Edit"));
    add(Item(kMenuEdit, "mnuEditCut", "Cu&t", K::Shell));
    add(Item(kMenuEdit, "mnuEditCopy", "&Copy", K::Shell));
    add(Item(kMenuEdit, "mnuEditPaste", "&Paste", K::Shell));
    add(Sep(kMenuEdit, "mnuEditBar0"));
    add(Item(kMenuEdit, "mnuViewToolbar", "&Toolbar", K::Shell));
    add(Item(kMenuEdit, "mnuViewStatusBar", "Status &Bar", K::Shell));
    add(Sep(kMenuEdit, "mnuEditBar1"));
    add(Item(kMenuEdit, "mnuInsertRow", "Insert &Row", K::Routed));
    add(Item(kMenuEdit, "mnuInsertColumn", "Insert C&olumn", K::Routed));
    add(Item(kMenuEdit, "mnuDeleteRow", "&Delete Row", K::Routed));
    add(Item(kMenuEdit, "mnuDeleteColumn", "De&lete Column", K::Routed));
    add(Sep(kMenuEdit, "mnuEditBar2"));
    add(Item(kMenuEdit, "mnuViewRefresh", "&Refresh", K::Shell));
    add(Item(kMenuEdit, "mnuSampleHeader", "&Sample header", K::Routed));

    // Assess
    add(Menu("", kMenuAssess, "&Assess"));
    add(Menu(kMenuAssess, "DirectFitMenu", "&Direct fit of L/F Data"));
    add(Open("DirectFitMenu", "LFMenu", 0, "&ELEFAN I", "frmELEFAN1", "LFQ", kGateTextLfq));
    add(Open("DirectFitMenu", "LFMenu", 1, "&Shepherd's Method", "frmShepherd", "LFQ",
             kGateTextLfq));
    add(Open("DirectFitMenu", "LFMenu", 2, "&Powell-Wetherall Plot", "frmPWPlot", "LFQ",
             kGateTextLfq));
    add(Open(kMenuAssess, "LAAMnu", -1, "&Analysis of Length-at-Age data", "frmLAAAnalysis", "LAA",
             kGateTextLaa));
    add(Menu(kMenuAssess, "ModalMenu", "&Modal Progression Analysis"));
    add(Open("ModalMenu", "MPAMenu", 0, "&Bhattacharya's Method", "frmBhattacVRD", "LFQ",
             kGateTextLfq));
    add(Open("ModalMenu", "MPAMenu", 1, "&NORMSEP", "frmNORMSEP_Simplex", "LFQ", kGateTextLfq));
    add(Open("ModalMenu", "MPAMenu", 2, "&Linking of Means", "frmLinking", "MSD", kGateTextMsd));
    add(Menu(kMenuAssess, "GrowthIncrementMenu", "Analysis of &Growth Increment Data"));
    add(Open("GrowthIncrementMenu", "GINMenu", 0, "&Gulland && Holt Plot", "frmGulland", "GIN",
             kGateTextGin));
    add(Open("GrowthIncrementMenu", "GINMenu", 1, "&Munro's Method", "frmMunro", "GIN",
             kGateTextGin));
    add(Open("GrowthIncrementMenu", "GINMenu", 2, "&Faben's Method", "frmFaben", "GIN",
             kGateTextGin));
    add(Open("GrowthIncrementMenu", "GINMenu", 3, "&Appeldoorn's Method", "frmAppledoorn", "GIN",
             kGateTextGin));
    add(Menu(kMenuAssess, "MortalityMenu", "M&ortality Estimation"));
    add(Menu("MortalityMenu", "SteadyStateMenu", "&Z from Steady-state Sample"));
    add(Open("SteadyStateMenu", "ZMenu", 0, "&Length-converted Catch Curve", "frmCatchCurve", "LFQ",
             kGateTextLfq));
    add(Open("SteadyStateMenu", "ZMenu", 1, "&Jones && van Zalinge Plot", "frmJonesZalinge", "LFQ",
             kGateTextLfq));
    add(Menu("SteadyStateMenu", "ZMenu", "&Z from Mean Length", 2));
    add(Open("ZMenu(2)", "ZMLMenu", 0, "&Beverton && Holt Model", "frmBHMort"));
    add(Open("ZMenu(2)", "ZMLMenu", 1, "&Ault && Ehrhardt Method", "frmAultErh"));
    add(Open("SteadyStateMenu", "ZMenu", 3, "&Hoenig's Models", "frmHoenig"));
    add(Menu("MortalityMenu", "NaturalMortalityMenu", "&Natural Mortality"));
    add(Open("NaturalMortalityMenu", "MMenu", 0, "&Rikhter && Efanov's Method", "frmRikEfa"));
    add(Open("NaturalMortalityMenu", "MMenu", 1, "&Pauly's M Equation", "frmPaulyM"));
    add(Open("NaturalMortalityMenu", "MMenu", 2, "&M from Selection Data", "frmMunro2", "PRB",
             kGateTextPrbM));
    add(Open(kMenuAssess, "RecruitMnu", -1, "&Recruitment Patterns", "frmRecruit", "LFQ",
             kGateTextLfq));
    add(Menu(kMenuAssess, "ProbabilityMenu", "&Probabilities of Capture"));
    add(Open("ProbabilityMenu", "ProbMnu", 0, "&Trawl-type Selection", "frmProbability2", "PRB",
             kGateTextPrbTrawl));
    add(Open("ProbabilityMenu", "ProbMnu", 1, "&Gillnet Selection", "frmGillNet", "LFQ",
             kGateTextGillnet));
    add(Menu(kMenuAssess, "VirtualPopulationMenu", "&Virtual Population Analysis"));
    add(Open("VirtualPopulationMenu", "VPAMenu", 0, "&Age-Structure VPA", "frmVPA1", "CAA",
             kGateTextCaa));
    add(Open("VirtualPopulationMenu", "VPAMenu", 1, "&Length-Structured VPA", "frmVPA2", "LFQ",
             kGateTextLfq));
    add(Item("VirtualPopulationMenu", "VPAMenu", "&VPA with Psuedocohorts", K::Inert, 2));
    add(Menu(kMenuAssess, "YieldPerRecruitMenu", "&Beverton && Holt Y/R Analysis"));
    add(Open("YieldPerRecruitMenu", "mnuYR", 0, "&Knife-edge", "frmYRKnife"));
    add(Open("YieldPerRecruitMenu", "mnuYR", 1, "&Selection Ogive", "frmYRSelection"));
    add(Open(kMenuAssess, "TBMenu", -1, "&Thompson && Bell Yield-Stock Prediction", "frmThompson",
             "SCE", kGateTextSce));

    // Support
    add(Menu("", kMenuSupport, "&Support"));
    add(Open(kMenuSupport, "SimulMenu", -1, "&Simulation of Length-frequencies", "frmSimulate"));
    add(Open(kMenuSupport, "SampWtMenu", -1, "Sample &Weight Estimation", "frmSampleWt"));
    add(Open(kMenuSupport, "BarGraphMenu", -1, "&VBGF and L/F Plot", "frmVBGFPlot"));
    add(Open(kMenuSupport, "MaxLengthMenu", -1, "&Maximum Length Estimation", "frmLmax"));
    add(Open(kMenuSupport, "IndicesMenu", -1, "&Growth Performance Indices", "frmPhiPrime"));
    add(Open(kMenuSupport, "RegressMenu", -1, "&Regression Analysis", "frmRegress", "XYF",
             kGateTextXyf));

    // Window
    add(Menu("", kMenuWindow, "&Window"));
    add(Item(kMenuWindow, "mnuWindowCascade", "&Cascade", K::Shell));
    add(Item(kMenuWindow, "mnuWindowTileHorizontal", "Tile &Horizontal", K::Shell));
    add(Item(kMenuWindow, "mnuWindowTileVertical", "Tile &Vertical", K::Shell));
    add(Item(kMenuWindow, "mnuWindowArrangeIcons", "&Arrange Icons", K::Shell));

    // Help
    add(Menu("", kMenuHelp, "&Help"));
    add(Item(kMenuHelp, "mnuHelpContents", "&Contents...", K::Shell));
    add(Item(kMenuHelp, "mnuHelpWeb", "&Norvo II on the Web", K::Shell));
    add(Sep(kMenuHelp, "mnuHelpBar0"));
    add(Item(kMenuHelp, "mnuHelpAbout", "&About Norvo II", K::Shell));

    // The grids' popup.
    add(Popup(kPopupTable, "Tables"));
    add(Item(kPopupTable, "mnuTable", "Insert Row", K::Routed, 0));
    add(Item(kPopupTable, "mnuTable", "Insert Column", K::Routed, 1));
    add(Sep(kPopupTable, "mnuTable", 2));
    add(Item(kPopupTable, "mnuTable", "Delete Row", K::Routed, 3));
    add(Item(kPopupTable, "mnuTable", "Delete Column", K::Routed, 4));
    add(Sep(kPopupTable, "mnuTable", 5));
    add(Item(kPopupTable, "mnuTable", "&Edit Subheader", K::Routed, 6));

    // The linking screen's popup.
    add(Popup(kPopupLinks, "Links"));
    add(Item(kPopupLinks, "mnuLink", "Auto-connect from previous", K::Shell, 0));
    add(Item(kPopupLinks, "mnuLink", "Terminate connecton", K::Shell, 1));
    return t;
}

std::string KeyOf(const CommandEntry& e) {
    return e.index < 0 ? e.control : e.control + "(" + std::to_string(e.index) + ")";
}

}  // namespace

const std::vector<CommandEntry>& CommandRegistry() {
    static const std::vector<CommandEntry> table = Build();
    return table;
}

const CommandEntry* FindCommand(const std::string& control, int index) {
    for (const CommandEntry& e : CommandRegistry())
        if (e.control == control && e.index == index) return &e;
    return nullptr;
}

std::vector<const CommandEntry*> CommandsUnder(const std::string& parent) {
    std::vector<const CommandEntry*> out;
    for (const CommandEntry& e : CommandRegistry())
        if (e.parent == parent) out.push_back(&e);
    return out;
}

std::string MenuKey(const CommandEntry& entry) {
    return KeyOf(entry);
}

std::string PlainCaption(const std::string& caption) {
    std::string out;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&') {
            if (i + 1 < caption.size() && caption[i + 1] == '&') {
                out += '&';
                ++i;
            }
            continue;
        }
        out += caption[i];
    }
    return out;
}

std::string ComingTip(const CommandEntry& entry) {
    return PlainCaption(entry.caption) + " is coming in a later version of Norvo II.";
}

const std::vector<ToolbarButton>& ToolbarButtons() {
    static const std::vector<ToolbarButton> buttons = {
        {"New", "mnuFileNew"},     {"Open", "mnuFileOpen"},     {"Save", "mnuFileSave"},
        {"Print", "mnuFilePrint"}, {"Cut", "mnuEditCut"},       {"Copy", "mnuEditCopy"},
        {"Paste", "mnuEditPaste"}, {"Help", "mnuHelpContents"},
    };
    return buttons;
}

}  // namespace norvo
