#pragma once
// Every message box, file dialogue, print dialogue and input box goes through DialogService, so
// that each path of the program, errors included, runs headless under a scripted fake.
#include <optional>
#include <string>
#include <vector>

namespace norvo {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel, AbortRetryIgnore };
enum class Icon { None, Critical, Question, Warning, Information };
enum class Answer { Ok, Cancel, Yes, No, Retry, Abort, Ignore };

// A message with text, title, button set and icon; the answer is returned by the service.
struct UserNotice {
    std::string text;
    std::string title;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
};

struct FileDialogOptions {
    std::string title;
    // Filter in the classic "Description (*.ext)|*.ext|Other|*.*" form.
    std::string filter;
    std::string startFolder;
    std::string defaultExtension;
    std::string initialName;
    bool mustExist = false;        // open: the file must exist
    bool overwritePrompt = false;  // save: warn before overwriting
};

struct InputBoxOptions {
    std::string prompt;
    std::string title;
    std::string defaultText;
};

class DialogService {
  public:
    virtual ~DialogService() = default;
    virtual Answer notify(const UserNotice& notice) = 0;
    // A chosen path, or nothing when the user cancels.
    virtual std::optional<std::string> openFile(const FileDialogOptions& options) = 0;
    virtual std::optional<std::string> saveFile(const FileDialogOptions& options) = 0;
    // The printer dialogue; false when the user cancels (the old cancel error 32755).
    virtual bool choosePrinter(const std::string& title) = 0;
    // The entered text, or nothing on Cancel.
    virtual std::optional<std::string> inputBox(const InputBoxOptions& options) = 0;

    // Conveniences.
    void inform(const std::string& text, const std::string& title = "Norvo II",
                Icon icon = Icon::None) {
        notify({text, title, Buttons::Ok, icon});
    }
    bool askYesNo(const std::string& text, const std::string& title, Icon icon = Icon::Question) {
        return notify({text, title, Buttons::YesNo, icon}) == Answer::Yes;
    }
};

inline constexpr int kCancelErrorNumber = 32755;

// The title of the notices that refuse a file or a typed value.
inline constexpr const char* kInvalidDataTitle = "Invalid Data";

}  // namespace norvo
