#pragma once
// The session's shared state: the cache of the last file read (last reader wins), the reader
// failure flag, the numeric key filter and the sub-header integers of the editor.
#include <optional>
#include <string>

#include "base/settings_store.h"
#include "base/user_notice.h"
#include "data/lfq_data.h"
#include "data/read_result.h"
#include "data/sample_readers.h"

namespace norvo {

struct Session {
    // The last grouped file read; after a reader of another kind, its shared header.
    LfqData lfqData;
    bool fileReadFailed = false;  // set when the last read failed; callers test it right after
    std::string numericKeys = "0123456789.";
    // Used by the grouped length-frequency editor when it opens the sample sub-header.
    int sampleHeaderColumn = 0;
    int sampleHeaderMode = 0;
    // The Thompson and Bell prediction takes each fleet's F from its selection ogive and the
    // species' Ft (true) or shares the species' F-array among the fleets (false). Set by the
    // scenario editor's check box; the prediction screen shows it as a choice.
    bool thompsonBellSelection = false;

    // Reads through a reader and keeps what it gives. On failure the read error's notice is
    // shown, the flag is set and the image is left empty but for the path.
    bool readLfq(const std::string& path, DialogService& dialogs);
    std::optional<PrbData> readPrb(const std::string& path, DialogService& dialogs);
    std::optional<MsdData> readMsd(const std::string& path, DialogService& dialogs);
    std::optional<CaaData> readCaa(const std::string& path, DialogService& dialogs);
    std::optional<LaaData> readLaa(const std::string& path, DialogService& dialogs);
    // A growth-increment file read by hand becomes the active file ("LastActive").
    std::optional<GinData> readGin(const std::string& path, SettingsStore& settings,
                                   DialogService& dialogs);

    // Keeps a reader's result: the data's shared header (or the whole image), or the failure.
    template <class T>
    std::optional<T> keep(ReadResult<T> read, DialogService& dialogs) {
        if (!read) {
            fail(read.error(), dialogs);
            return std::nullopt;
        }
        fileReadFailed = false;
        lfqData = read.value().header;
        return std::move(read).value();
    }

  private:
    void fail(const ReadError& error, DialogService& dialogs);
};

// "0123456789" followed by the decimal separator (the 2nd character of 0.1 formatted "0.0").
std::string MakeNumericKeys(char decimalSeparator);

}  // namespace norvo
