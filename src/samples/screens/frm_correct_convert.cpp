#include "samples/screens/frm_correct_convert.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

#include "samples/convert.h"
#include "samples/correct.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"

namespace norvo::gui {

namespace {
constexpr std::array<const char*, 4> kOgiveCaptions = {
    "Left limb L50:", "Left limb L75:", "Right limb L75:", "Right limb L50:"};
constexpr std::array<const char*, 3> kCoefCaptions = {"d:", "e:", "f:"};
constexpr const char* kPrbFilter = "Probabilities (*.prb)|*.prb|All Files (*.*)|*.*";

// A box that must hold a number: NaN when it is blank or not one.
double Required(const QLineEdit* box) {
    return NumberOrNaN(box);
}
}  // namespace

FrmCorrect::FrmCorrect(ShellContext& ctx, QWidget* parent)
    : SampleToolScreen(ctx,
                       {"frmCorrect",
                        "Correct using Probabilities of Capture",
                        {"Correct this file: "},
                        "Save corrected file to: "},
                       parent) {
    optFile_ = new QRadioButton(kCorrectOptionFile, this);
    optOgive_ = new QRadioButton(kCorrectOptionOgive, this);
    optFile_->setChecked(true);
    options()->addWidget(optFile_);
    auto* prbRow = new QHBoxLayout;
    txtPrb_ = new QLineEdit(this);
    txtPrb_->setObjectName("txtProbabilityFile");
    auto* browse = new QPushButton("...", this);
    browse->setObjectName("cmdProbabilityFile");
    browse->setFixedWidth(32);
    prbRow->addSpacing(24);
    prbRow->addWidget(txtPrb_);
    prbRow->addWidget(browse);
    options()->addLayout(prbRow);
    options()->addWidget(optOgive_);
    auto* grid = new QHBoxLayout;
    grid->addSpacing(24);
    auto* left = new QFormLayout;
    auto* right = new QFormLayout;
    for (int i = 0; i < 4; ++i) {
        txtOgive_[i] = new QLineEdit(this);
        txtOgive_[i]->setMaximumWidth(80);
        (i < 2 ? left : right)->addRow(kOgiveCaptions[i], txtOgive_[i]);
    }
    grid->addLayout(left);
    grid->addLayout(right);
    grid->addStretch();
    options()->addLayout(grid);
    connect(browse, &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this] {
                const auto path =
                    ctx_.dialogs.openFile({kSampleOpenTitle, kPrbFilter, {}, "prb", {}, true});
                if (path) txtPrb_->setText(QString::fromStdString(*path));
            }));
    connect(optFile_, &QRadioButton::toggled, this,
            Guarded(ctx_.dialogs, [this](bool) { enableBoxes(); }));
    enableBoxes();
    loadLastActive();
}

void FrmCorrect::enableBoxes() {
    txtPrb_->setEnabled(optFile_->isChecked());
    for (auto* b : txtOgive_) b->setEnabled(optOgive_->isChecked());
}

SampleFileRun FrmCorrect::runTool(const std::vector<std::string>& sources,
                                  const std::string& destination) {
    CorrectOptions o{sources[0], destination, {}, std::nullopt};
    if (optFile_->isChecked()) {
        o.prbPath = txtPrb_->text().trimmed().toStdString();
    } else {
        // Blank right-limb boxes mean no right limb; anything else must be a number.
        const bool noRight =
            txtOgive_[2]->text().trimmed().isEmpty() && txtOgive_[3]->text().trimmed().isEmpty();
        Ogive g{Required(txtOgive_[0]), Required(txtOgive_[1]),
                noRight ? 0 : Required(txtOgive_[2]), noRight ? 0 : Required(txtOgive_[3])};
        for (double v : {g.l50, g.l75, g.r75, g.r50})
            if (std::isnan(v)) g = Ogive{0, 0, 0, 0};  // refused by the ogive check
        o.ogive = g;
    }
    return RunCorrect(o, ctx_.programFolder.toStdString());
}

FrmConvert::FrmConvert(ShellContext& ctx, QWidget* parent)
    : SampleToolScreen(ctx,
                       {"frmConvert",
                        "Convert Files",
                        {"Source file:"},
                        "Destination file:",
                        kSampleProceed,
                        kSampleClose,
                        true,
                        "Species name:",
                        "Other file indentifier:"},
                       parent) {
    auto* group = new QGroupBox("Conversion Function", this);
    auto* gl = new QVBoxLayout(group);
    opt1_ = new QRadioButton(kConvertFunction1, group);
    opt2_ = new QRadioButton(kConvertFunction2, group);
    opt1_->setChecked(true);
    gl->addWidget(opt1_);
    gl->addWidget(opt2_);
    auto* coefs = new QHBoxLayout;
    for (int i = 0; i < 3; ++i) {
        txtCoef_[i] = new QLineEdit(group);
        txtCoef_[i]->setMaximumWidth(80);
        auto* form = new QFormLayout;
        form->addRow(kCoefCaptions[i], txtCoef_[i]);
        coefs->addLayout(form);
    }
    coefs->addStretch();
    gl->addLayout(coefs);
    options()->addWidget(group);
    loadLastActive();
}

SampleFileRun FrmConvert::runTool(const std::vector<std::string>& sources,
                                  const std::string& destination) {
    const bool second = opt2_->isChecked();
    const int used = second ? 3 : 2;
    for (int i = 0; i < used; ++i) {
        if (std::isnan(Required(txtCoef_[i]))) {
            SampleFileRun refused;
            refused.refuse(kCompleteTheInputsText, kSmInvalidActionTitle);
            return refused;
        }
    }
    ConvertFunction fn{second ? 2 : 1, Required(txtCoef_[0]), Required(txtCoef_[1]),
                       second ? Required(txtCoef_[2]) : 1.0};
    return RunConvert({sources[0], destination, fn}, ctx_.programFolder.toStdString());
}

}  // namespace norvo::gui
