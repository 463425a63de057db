#pragma once
// The dialog service of the programs that run without a screen (norvo-cli, the build's data
// tools): every notice is kept in order, every question takes one fixed answer, and no file,
// printer or input dialogue can be shown (they answer as a cancel would).
#include <optional>
#include <string>
#include <vector>

#include "base/user_notice.h"

namespace norvo {

class HeadlessDialogs : public DialogService {
  public:
    explicit HeadlessDialogs(Answer questionAnswer = Answer::Yes) : answer_(questionAnswer) {}

    Answer notify(const UserNotice& notice) override {
        shown_.push_back(notice);
        return notice.buttons == Buttons::Ok ? Answer::Ok : answer_;
    }
    std::optional<std::string> openFile(const FileDialogOptions&) override { return std::nullopt; }
    std::optional<std::string> saveFile(const FileDialogOptions&) override { return std::nullopt; }
    bool choosePrinter(const std::string&) override { return false; }
    std::optional<std::string> inputBox(const InputBoxOptions&) override { return std::nullopt; }

    // Everything shown so far, in order.
    const std::vector<UserNotice>& shown() const { return shown_; }

  private:
    Answer answer_;
    std::vector<UserNotice> shown_;
};

}  // namespace norvo
