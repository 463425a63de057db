#include "samples/screens/frm_adjust_smooth.h"

#include <QFormLayout>
#include <QVBoxLayout>
#include <cmath>

#include "numerics/validators.h"
#include "samples/adjust_smooth.h"
#include "widgets/number_box.h"

namespace norvo::gui {

FrmAdjust::FrmAdjust(ShellContext& ctx, QWidget* parent)
    : SampleToolScreen(ctx, {"frmAdjust", "Adjust Class Interval", {"Source file:"}}, parent) {
    auto* form = new QFormLayout;
    txtSize_ = new QLineEdit(this);
    txtSize_->setObjectName("txtClassSize");
    txtSize_->setMaximumWidth(100);
    form->addRow("New class size:", txtSize_);
    options()->addLayout(form);
    loadLastActive();
}

bool FrmAdjust::confirmRun() {
    const double size = txtSize_->text().trimmed().isEmpty() ? 0 : NumberOrNaN(txtSize_);
    if (!InRange(size, kAdjustMinSize, kAdjustMaxSize)) {
        ctx_.dialogs.notify(
            {kAdjustInvalidSizeText, kAdjustInvalidSizeTitle, Buttons::Ok, Icon::Warning});
        return false;
    }
    return ctx_.dialogs.askYesNo(kAdjustAskText, kAdjustAskTitle);
}

SampleFileRun FrmAdjust::runTool(const std::vector<std::string>& sources,
                                 const std::string& destination) {
    // Text that is no number is refused as an out-of-range size.
    const double size = txtSize_->text().trimmed().isEmpty() ? 0 : NumberOrNaN(txtSize_);
    return RunAdjust({sources[0], destination, std::isnan(size) ? -1.0 : size},
                     ctx_.programFolder.toStdString());
}

FrmSmooth::FrmSmooth(ShellContext& ctx, QWidget* parent)
    : SampleToolScreen(ctx, {"frmSmooth", "Smooth Data File", {"Source file:"}}, parent) {
    opt3_ = new QRadioButton(kSmoothOption3, this);
    opt5_ = new QRadioButton(kSmoothOption5, this);
    opt3_->setChecked(true);
    options()->addWidget(opt3_);
    options()->addWidget(opt5_);
    loadLastActive();
}

SampleFileRun FrmSmooth::runTool(const std::vector<std::string>& sources,
                                 const std::string& destination) {
    return RunSmooth({sources[0], destination, opt5_->isChecked() ? 5 : 3},
                     ctx_.programFolder.toStdString());
}

}  // namespace norvo::gui
