#pragma once
// Shared plumbing of the headless front end: the command registry, refusals and output.
#include <CLI/CLI.hpp>
#include <functional>
#include <iostream>
#include <nlohmann/json.hpp>
#include <source_location>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/headless_dialogs.h"
#include "base/outcome.h"
#include "base/settings_store.h"
#include "data/read_result.h"
#include "data/store_routines.h"
#include "data/write_notices.h"

namespace norvo::cli {

inline constexpr int kExitOk = 0;
inline constexpr int kExitRefused = 2;
inline constexpr int kExitFault = 3;

// A check refused the input: the notice's title and message go to stderr (or JSON), exit 2.
struct Refusal : std::runtime_error {
    std::string title;
    Refusal(std::string t, const std::string& message)
        : std::runtime_error(message), title(std::move(t)) {}
};

// A file the user already has is not replaced unless the command was given --force.
inline void KeepExisting(const std::string& path, bool force) {
    if (!force && FileExists(path)) throw Refusal(kCreateFileTitle, FileExistsText(path));
}

// What every command gets: the options common to all and the headless services.
struct Context {
    bool json = false;
    std::string programFolder;  // folder of the executable (Templates/ beside it)
    MemorySettingsStore settings;
    HeadlessDialogs dialogs{Answer::Yes};  // questions are answered Yes; notices are kept

    // Raises a Refusal from the last notice shown (for checks that report through dialogs).
    [[noreturn]] void refuseWithLastNotice() const {
        if (dialogs.shown().empty()) throw std::logic_error("No notice was shown");
        const auto& n = dialogs.shown().back();
        throw Refusal(n.title, n.text);
    }
    // Shows a core result's notices (after those shown before) and, when the result was
    // refused, ends the command with its refusal (exit 2).
    void take(const Outcome& outcome) {
        for (const UserNotice& n : outcome.notices) dialogs.notify(n);
        if (const UserNotice* r = outcome.refusal()) throw Refusal(r->title, r->text);
    }
    // Every notice shown so far, in order, as [{"title", "text"}, ...].
    nlohmann::json noticesJson() const {
        nlohmann::json list = nlohmann::json::array();
        for (const UserNotice& n : dialogs.shown())
            list.push_back({{"title", n.title}, {"text", n.text}});
        return list;
    }
    // The data a reader gave, or the end of the command with the reader's notice (exit 2).
    template <class T>
    T read(ReadResult<T> result) {
        if (!result) {
            const UserNotice& n = result.error().notice;
            Outcome failed;
            failed.refuse(n.text, n.title, n.icon);
            take(failed);
        }
        return std::move(result).value();
    }
    // Prints a JSON object; it carries "notices" (every notice shown on the way) unless the
    // command has put its own there.
    void print(nlohmann::json j) const {
        if (j.is_object() && !j.contains("notices")) j["notices"] = noticesJson();
        std::cout << j.dump(2) << "\n";
    }
};

// Each command file registers itself: the callback adds its subcommand to the app and arranges
// for its own run; `result` receives the exit code of the command. The app takes the commands
// in the order of their files' names, whatever order the registrations ran in.
using CommandSetup = std::function<void(CLI::App& app, Context& ctx)>;

struct RegisteredCommand {
    std::string file;
    CommandSetup setup;
};

std::vector<RegisteredCommand>& CommandRegistry();

struct RegisterCommand {
    explicit RegisterCommand(CommandSetup setup,
                             std::source_location where = std::source_location::current()) {
        CommandRegistry().push_back({where.file_name(), std::move(setup)});
    }
};

}  // namespace norvo::cli
