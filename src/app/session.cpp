#include "app/session.h"

#include "data/lfq_file.h"

namespace norvo {

void Session::fail(const ReadError& error, DialogService& dialogs) {
    lfqData = LfqData{};
    lfqData.path = error.path;
    fileReadFailed = true;
    dialogs.notify(error.notice);
}

bool Session::readLfq(const std::string& path, DialogService& dialogs) {
    ReadResult<LfqData> read = ReadLFQ(path);
    if (!read) {
        fail(read.error(), dialogs);
        return false;
    }
    fileReadFailed = false;
    lfqData = std::move(read).value();
    return true;
}

std::optional<PrbData> Session::readPrb(const std::string& path, DialogService& dialogs) {
    return keep(ReadPRB(path), dialogs);
}

std::optional<MsdData> Session::readMsd(const std::string& path, DialogService& dialogs) {
    return keep(ReadMSD(path), dialogs);
}

std::optional<CaaData> Session::readCaa(const std::string& path, DialogService& dialogs) {
    return keep(ReadCAA(path), dialogs);
}

std::optional<LaaData> Session::readLaa(const std::string& path, DialogService& dialogs) {
    return keep(ReadLAA(path), dialogs);
}

std::optional<GinData> Session::readGin(const std::string& path, SettingsStore& settings,
                                        DialogService& dialogs) {
    auto data = keep(ReadGIN(path), dialogs);
    if (data) settings.setRunTime(kKeyLastActive, path);
    return data;
}

std::string MakeNumericKeys(char decimalSeparator) {
    return std::string("0123456789") + decimalSeparator;
}

}  // namespace norvo
