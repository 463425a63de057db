#pragma once
// A DialogService that answers from scripts and records what it was shown. Tests script the
// answers; the command-line front end uses it with fixed answers and reads back the notices.
#include <deque>
#include <stdexcept>

#include "base/user_notice.h"

namespace norvo {

class ScriptedDialogs : public DialogService {
  public:
    // Scripted answers, consumed in order. A question (any button set other than Ok) with no
    // scripted answer left takes `defaultAnswer` if set, otherwise throws, so a test notices.
    std::deque<Answer> answers;
    std::optional<Answer> defaultAnswer;
    std::deque<std::optional<std::string>> openAnswers;
    std::deque<std::optional<std::string>> saveAnswers;
    std::deque<bool> printAnswers;
    std::deque<std::optional<std::string>> inputAnswers;

    // Everything shown, in order.
    std::vector<UserNotice> shown;
    std::vector<FileDialogOptions> fileDialogs;
    std::vector<InputBoxOptions> inputBoxes;
    std::vector<std::string> printDialogs;

    Answer notify(const UserNotice& notice) override {
        shown.push_back(notice);
        if (notice.buttons == Buttons::Ok) {
            if (!answers.empty() && answers.front() == Answer::Ok) answers.pop_front();
            return Answer::Ok;
        }
        if (!answers.empty()) {
            const Answer a = answers.front();
            answers.pop_front();
            return a;
        }
        if (defaultAnswer) return *defaultAnswer;
        throw std::logic_error("Unscripted question: " + notice.title + ": " + notice.text);
    }
    std::optional<std::string> openFile(const FileDialogOptions& o) override {
        fileDialogs.push_back(o);
        return pop(openAnswers, "open dialogue: " + o.title);
    }
    std::optional<std::string> saveFile(const FileDialogOptions& o) override {
        fileDialogs.push_back(o);
        return pop(saveAnswers, "save dialogue: " + o.title);
    }
    bool choosePrinter(const std::string& title) override {
        printDialogs.push_back(title);
        if (printAnswers.empty()) throw std::logic_error("Unscripted print dialogue: " + title);
        const bool a = printAnswers.front();
        printAnswers.pop_front();
        return a;
    }
    std::optional<std::string> inputBox(const InputBoxOptions& o) override {
        inputBoxes.push_back(o);
        return pop(inputAnswers, "input box: " + o.title);
    }

    const UserNotice& last() const {
        if (shown.empty()) throw std::logic_error("No notice was shown");
        return shown.back();
    }

  private:
    static std::optional<std::string> pop(std::deque<std::optional<std::string>>& q,
                                          const std::string& what) {
        if (q.empty()) throw std::logic_error("Unscripted " + what);
        auto a = q.front();
        q.pop_front();
        return a;
    }
};

}  // namespace norvo
