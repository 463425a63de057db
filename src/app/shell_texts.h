#pragma once
// The main window's own messages and titles.
namespace norvo {

inline constexpr const char* kInvalidActionTitle = "Invalid Action";
inline constexpr const char* kNoDataFileActive =
    "No data file is loaded and active, or file cannot be located. Please check.";
inline constexpr const char* kSampleHeaderNeedsLfq =
    "This routine requires length frequency data loaded and active. Please check the input.";
inline constexpr const char* kRefreshPlaceholder = "Add 'mnuViewRefresh_Click' code.";

inline constexpr const char* kNewDialogTitle = "New...";
inline constexpr const char* kOpenDialogTitle = "Open...";
inline constexpr const char* kSaveAsDialogTitle = "Save As";
inline constexpr const char* kPrintDialogTitle = "Print";
inline constexpr const char* kPrinterSetupTitle = "Printer Setup";

inline constexpr const char* kSpeciesWarningTitle = "WARNING!";
inline constexpr const char* kSpeciesWarningText =
    "This file is usually created through the length-structured VPA routine and can be edited. "
    "Do you want to continue?";

// The extra Save As row of a variably grouped file.
inline constexpr const char* kVlfToLfqFilter = "Grouped frequencies (*.lfq)|*.lfq|";

inline constexpr const char* kSystemInfoUnavailable =
    "System Information Is Unavailable At This Time";

inline constexpr const char* kSplashNotice =
    "Norvo II is a toolbox for fish stock assessment from length-frequency, length-at-age, "
    "growth-increment and catch-at-age data. Check every result against the biology of your "
    "stock before you use it in advice.";
inline constexpr const char* kAboutWarning =
    "Warning: this program is provided as it is, without warranty of any kind. The methods it "
    "implements are published; the responsibility for choosing them, for the data given to them "
    "and for the use of their results lies with the user. Copying or distributing this program "
    "is allowed only under the terms of its licence.";

// Shown in the status bar when a file kind has no editor yet.
inline constexpr const char* kEditorComingSuffix =
    " files have no editor in this version yet; the file was made from its template.";

inline constexpr const char* kBrowserWorking = "Working...";
inline constexpr const char* kBrowserSearchPrompt = "Find in this page:";
inline constexpr const char* kBrowserSearchTitle = "Search";

}  // namespace norvo
