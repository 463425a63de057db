#include "app/command_registry.h"

#include <gtest/gtest.h>

#include <set>

namespace norvo {
namespace {

const char* const kA =
    "This routine requires grouped length frequencies (LFQ). No active length frequency file "
    "detected. Do you want to continue and locate a valid file manually?";
const char* const kG =
    "This routine requires Growth Increment File (GIN). No active Growth Increment file "
    "detected. Do you want to continue and locate a valid file manually?";

struct Expected {
    const char* control;
    int index;
    const char* caption;
    const char* kind;
    const char* screen;
    const char* gate;
};

// The screen-opening rows as the user's documentation lists them.
const Expected kScreens[] = {
    {"LFMenu", 0, "&ELEFAN I", "LFQ", "frmELEFAN1", kA},
    {"LFMenu", 1, "&Shepherd's Method", "LFQ", "frmShepherd", kA},
    {"LFMenu", 2, "&Powell-Wetherall Plot", "LFQ", "frmPWPlot", kA},
    {"LAAMnu", -1, "&Analysis of Length-at-Age data", "LAA", "frmLAAAnalysis",
     "This routine requires length-at-age data file. No active length-at-age file detected. Do "
     "you want to continue and locate a valid file manually?"},
    {"MPAMenu", 0, "&Bhattacharya's Method", "LFQ", "frmBhattacVRD", kA},
    {"MPAMenu", 1, "&NORMSEP", "LFQ", "frmNORMSEP_Simplex", kA},
    {"MPAMenu", 2, "&Linking of Means", "MSD", "frmLinking",
     "This routine requires Mean and Standard Deviation (MSD) file. No active Mean and Standard "
     "Deviation file detected. Do you want to continue and locate a valid file manually?"},
    {"GINMenu", 0, "&Gulland && Holt Plot", "GIN", "frmGulland", kG},
    {"GINMenu", 1, "&Munro's Method", "GIN", "frmMunro", kG},
    {"GINMenu", 2, "&Faben's Method", "GIN", "frmFaben", kG},
    {"GINMenu", 3, "&Appeldoorn's Method", "GIN", "frmAppledoorn", kG},
    {"ZMenu", 0, "&Length-converted Catch Curve", "LFQ", "frmCatchCurve", kA},
    {"ZMenu", 1, "&Jones && van Zalinge Plot", "LFQ", "frmJonesZalinge", kA},
    {"ZMLMenu", 0, "&Beverton && Holt Model", "", "frmBHMort", ""},
    {"ZMLMenu", 1, "&Ault && Ehrhardt Method", "", "frmAultErh", ""},
    {"ZMenu", 3, "&Hoenig's Models", "", "frmHoenig", ""},
    {"MMenu", 0, "&Rikhter && Efanov's Method", "", "frmRikEfa", ""},
    {"MMenu", 1, "&Pauly's M Equation", "", "frmPaulyM", ""},
    {"MMenu", 2, "&M from Selection Data", "PRB", "frmMunro2",
     "This routine requires probability of capture file (PRB). No active probability of capture "
     "file detected. Do you want to continue and locate a valid file manually?"},
    {"RecruitMnu", -1, "&Recruitment Patterns", "LFQ", "frmRecruit", kA},
    {"ProbMnu", 0, "&Trawl-type Selection", "PRB", "frmProbability2",
     "This routine requires probability of cature file (PRB). No active probability of capture "
     "file detected. Do you want to continue and locate a valid file manually?"},
    {"ProbMnu", 1, "&Gillnet Selection", "LFQ", "frmGillNet",
     "This routine requires length frequency file (LFQ) with two sample representing catches "
     "from two gillnets of different sizes. No active length frequency file detected. Do you "
     "want to continue and locate a valid file manually?"},
    {"VPAMenu", 0, "&Age-Structure VPA", "CAA", "frmVPA1",
     "This routine requires catch-at-age file (CAA). No active catch-at-age file detected. Do "
     "you want to continue and locate a valid file manually?"},
    {"VPAMenu", 1, "&Length-Structured VPA", "LFQ", "frmVPA2", kA},
    {"mnuYR", 0, "&Knife-edge", "", "frmYRKnife", ""},
    {"mnuYR", 1, "&Selection Ogive", "", "frmYRSelection", ""},
    {"TBMenu", -1, "&Thompson && Bell Yield-Stock Prediction", "SCE", "frmThompson",
     "This routine requires a fishery scenario (SCE). No active fishery scenario file detected. "
     "The FILE menu allows you to create a fishery scenario file for use with this routine. Do "
     "you want to continue and locate a valid file manually?"},
    {"SimulMenu", -1, "&Simulation of Length-frequencies", "", "frmSimulate", ""},
    {"SampWtMenu", -1, "Sample &Weight Estimation", "", "frmSampleWt", ""},
    {"BarGraphMenu", -1, "&VBGF and L/F Plot", "", "frmVBGFPlot", ""},
    {"MaxLengthMenu", -1, "&Maximum Length Estimation", "", "frmLmax", ""},
    {"IndicesMenu", -1, "&Growth Performance Indices", "", "frmPhiPrime", ""},
    {"RegressMenu", -1, "&Regression Analysis", "XYF", "frmRegress",
     "This routine requires two-column regression data file (XYF). Please load before "
     "proceeding."},
    {"SMMenu", 0, "&Merge Files", "LFQ", "frmMerge", ""},
    {"SMMenu", 1, "&Correct using Probabilities of Capture", "LFQ", "frmCorrect", ""},
    {"SMMenu", 2, "&Adjust Class Interval", "LFQ", "frmAdjust", ""},
    {"SMMenu", 3, "&Smooth Data File", "LFQ", "frmSmooth", ""},
    {"SMMenu", 4, "&Pool Samples", "LFQ", "frmPool", ""},
    {"SMMenu", 5, "C&onvert Files", "LFQ", "frmConvert", ""},
    {"SMMenu", 6, "&Raise Samples", "LFQ", "frmRaise", ""},
    {"ImportMenu", -1, "&Import Old Norvo L/F Files...", "", "frmImport", ""},
};

TEST(CommandRegistry, EveryScreenEntryAsDocumented) {
    std::size_t screens = 0;
    for (const CommandEntry& e : CommandRegistry())
        if (e.kind == CommandKind::Screen) ++screens;
    EXPECT_EQ(screens, std::size(kScreens));

    for (const Expected& x : kScreens) {
        SCOPED_TRACE(std::string(x.control) + "(" + std::to_string(x.index) + ")");
        const CommandEntry* e = FindCommand(x.control, x.index);
        ASSERT_NE(e, nullptr);
        EXPECT_EQ(e->kind, CommandKind::Screen);
        EXPECT_EQ(e->caption, x.caption);
        EXPECT_EQ(e->requiredKind, x.kind);
        EXPECT_EQ(e->screen, x.screen);
        if (std::string(x.control) == "SMMenu") {
            EXPECT_EQ(e->gateTitle, "WARNING! No Active File");
            EXPECT_EQ(e->gateText,
                      "WARNING! No active length frequency file loaded. The sample manipulation "
                      "routines require length frequency file. Do you want to continue?");
        } else if (*x.kind) {
            EXPECT_EQ(e->gateTitle, "Invalid Data");
            EXPECT_EQ(e->gateText, x.gate);
        } else {
            EXPECT_FALSE(e->gated());
        }
    }
}

TEST(CommandRegistry, FileEditWindowHelpAndPopups) {
    const std::pair<const char*, const char*> captions[] = {
        {"mnuFileNew", "&New"},
        {"mnuFileOpen", "&Open"},
        {"mnuFileClose", "&Close"},
        {"mnuFileSave", "&Save"},
        {"mnuFileSaveAs", "Save &As..."},
        {"mnuFilePrintSetup", "Print Set&up"},
        {"mnuFilePrint", "&Print..."},
        {"FileManipulateMenu", "Sample &Manipulation"},
        {"mnuExport", "&Export Data..."},
        {"mnuFileExit", "E&xit"},
        {"mnuEditCut", "Cu&t"},
        {"mnuEditCopy", "&Copy"},
        {"mnuEditPaste", "&Paste"},
        {"mnuViewToolbar", "&Toolbar"},
        {"mnuViewStatusBar", "Status &Bar"},
        {"mnuViewRefresh", "&Refresh"},
        {"mnuSampleHeader", "&Sample header"},
        {"mnuWindowCascade", "&Cascade"},
        {"mnuWindowTileHorizontal", "Tile &Horizontal"},
        {"mnuWindowTileVertical", "Tile &Vertical"},
        {"mnuWindowArrangeIcons", "&Arrange Icons"},
        {"mnuHelpContents", "&Contents..."},
        {"mnuHelpWeb", "&Norvo II on the Web"},
        {"mnuHelpAbout", "&About Norvo II"},
        {"TableMenu", "Tables"},
        {"mnuLinkMain", "Links"},
    };
    for (const auto& [control, caption] : captions) {
        SCOPED_TRACE(control);
        const CommandEntry* e = FindCommand(control);
        ASSERT_NE(e, nullptr);
        EXPECT_EQ(e->caption, caption);
    }
    const char* table[] = {"Insert Row", "Insert Column",  "-", "Delete Row", "Delete Column",
                           "-",          "&Edit Subheader"};
    for (int i = 0; i < 7; ++i) EXPECT_EQ(FindCommand("mnuTable", i)->caption, table[i]);
    EXPECT_EQ(FindCommand("mnuLink", 0)->caption, "Auto-connect from previous");
    EXPECT_EQ(FindCommand("mnuLink", 1)->caption, "Terminate connecton");

    // Three blank recent-file slots and the pseudocohort entry stand in the menu doing nothing.
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(FindCommand("mnuFileMRU", i)->kind, CommandKind::Inert);
        EXPECT_EQ(FindCommand("mnuFileMRU", i)->caption, "");
    }
    const CommandEntry* pseudo = FindCommand("VPAMenu", 2);
    EXPECT_EQ(pseudo->caption, "&VPA with Psuedocohorts");
    EXPECT_EQ(pseudo->kind, CommandKind::Inert);
}

TEST(CommandRegistry, TreeIsWellFormed) {
    std::set<std::string> menus{""};
    std::set<std::pair<std::string, int>> seen;
    for (const CommandEntry& e : CommandRegistry()) {
        SCOPED_TRACE(MenuKey(e));
        EXPECT_TRUE(menus.count(e.parent)) << "parent must come first: " << e.parent;
        EXPECT_TRUE(seen.insert({e.control, e.index}).second) << "duplicate entry";
        if (e.kind == CommandKind::Menu) menus.insert(MenuKey(e));
    }
    // "&Z from Mean Length" is element 2 of ZMenu and holds the two mean-length methods.
    const auto zml = CommandsUnder("ZMenu(2)");
    ASSERT_EQ(zml.size(), 2u);
    EXPECT_EQ(zml[0]->control, "ZMLMenu");
    // The menu bar in order.
    std::vector<std::string> bar;
    for (const CommandEntry* e : CommandsUnder(""))
        if (!e->popup) bar.push_back(PlainCaption(e->caption));
    EXPECT_EQ(bar,
              (std::vector<std::string>{"File", "Edit", "Assess", "Support", "Window", "Help"}));
}

TEST(CommandRegistry, CaptionsAndTips) {
    EXPECT_EQ(PlainCaption("&Gulland && Holt Plot"), "Gulland & Holt Plot");
    EXPECT_EQ(PlainCaption("Save &As..."), "Save As...");
    EXPECT_EQ(ComingTip(*FindCommand("LFMenu", 0)),
              "ELEFAN I is coming in a later version of Norvo II.");
    std::vector<std::string> keys;
    for (const ToolbarButton& b : ToolbarButtons()) {
        keys.push_back(b.key);
        EXPECT_NE(FindCommand(b.control), nullptr) << b.control;
    }
    EXPECT_EQ(keys, (std::vector<std::string>{"New", "Open", "Save", "Print", "Cut", "Copy",
                                              "Paste", "Help"}));
}

}  // namespace
}  // namespace norvo
