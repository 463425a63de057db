#pragma once
// Fakes of the report flow's output screen and picture saver, for tests of reports.
#include <string>
#include <vector>

#include "chart/report.h"

namespace norvo::test {

// Records what the report flow did to the output screen.
struct FakeOutput : ReportOutput {
    bool toFile = false;
    std::vector<std::string> calls;
    ReportDescriptor filled;
    void fill(const ReportDescriptor& r) override {
        filled = r;
        calls.push_back("fill");
    }
    void setPicture(const CanvasImage&) override { calls.push_back("picture"); }
    bool printToFileChosen() const override { return toFile; }
    void printPage() override { calls.push_back("print"); }
    void unload() override { calls.push_back("unload"); }
};

// A saver that records the paths and succeeds unless told otherwise.
struct FakeSaver {
    std::vector<std::string> paths;
    bool ok = true;
    PlotSaver fn() {
        return [this](const ChartCanvas&, const std::string& p) {
            paths.push_back(p);
            return ok;
        };
    }
};

}  // namespace norvo::test
