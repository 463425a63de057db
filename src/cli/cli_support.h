#pragma once
// Shared plumbing of the headless front end: the command registry, refusals and output.
#include <CLI/CLI.hpp>
#include <functional>
#include <iostream>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/scripted_dialogs.h"
#include "app/session.h"
#include "app/settings_store.h"

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

// What every command gets: the options common to all, a session and headless services.
struct Context {
    bool json = false;
    std::string programFolder;  // folder of the executable (Templates/ beside it)
    Session session;
    MemorySettingsStore settings;
    ScriptedDialogs dialogs;  // questions are answered Yes; notices are collected
    Context() { dialogs.defaultAnswer = Answer::Yes; }

    // Raises a Refusal from the last notice shown (for checks that report through dialogs).
    [[noreturn]] void refuseWithLastNotice() const {
        const auto& n = dialogs.last();
        throw Refusal(n.title, n.text);
    }
    void print(const nlohmann::json& j) const { std::cout << j.dump(2) << "\n"; }
};

// Each command file registers itself: the callback adds its subcommand to the app and arranges
// for its own run; `result` receives the exit code of the command.
using CommandSetup = std::function<void(CLI::App& app, Context& ctx)>;

std::vector<CommandSetup>& CommandRegistry();

struct RegisterCommand {
    explicit RegisterCommand(CommandSetup setup) { CommandRegistry().push_back(std::move(setup)); }
};

}  // namespace norvo::cli
