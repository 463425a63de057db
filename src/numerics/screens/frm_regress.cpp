#include "numerics/screens/frm_regress.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <optional>

#include "base/outcome.h"
#include "base/settings_store.h"
#include "chart/regress_plot.h"
#include "data/xyf_file.h"
#include "numerics/regression_tool.h"
#include "numerics/text_convert.h"
#include "widgets/command_boundary.h"
#include "widgets/file_name_row.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {
// Display patterns of the read-outs: n, a and b with their errors, r, the variance of the fit.
constexpr std::array<const char*, 7> kReadOutPatterns = {"#0",      "#0.0000", "#0.0000", "#0.0000",
                                                         "#0.0000", "#0.000",  "#0.0"};
constexpr std::array<int, 7> kReadOutSlots = {
    RegressionResult::kN,   RegressionResult::kA, RegressionResult::kSeA, RegressionResult::kB,
    RegressionResult::kSeB, RegressionResult::kR, RegressionResult::kF};

bool HasXyfExtension(const std::string& path) {
    if (path.size() <= 4) return false;
    std::string ext = path.substr(path.size() - 4);
    for (auto& ch : ext) ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
    return ext == ".XYF";
}
}  // namespace

struct FrmRegress::State {
    std::optional<XyfData> data;
    std::optional<RegressRun> run;
};

FrmRegress::FrmRegress(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmRegress");
    setWindowTitle(kRegressCaption);
    auto* layout = new QVBoxLayout(this);

    auto* top = new QHBoxLayout;
    auto* form = new QFormLayout;
    const FileNameRow fileRow = AddFileNameRow(form, this, kRegressCmdOpen);
    file_ = fileRow.file;
    cmd_[2] = fileRow.open;
    for (size_t i = 0; i < txtTitle_.size(); ++i) {
        txtTitle_[i] = new QLineEdit(this);
        txtTitle_[i]->setReadOnly(true);
        form->addRow(kRegressTitleCaptions[i], txtTitle_[i]);
    }
    cmbRegress_ = new QComboBox(this);
    for (const char* f : kRegressForms) cmbRegress_->addItem(f);
    form->addRow("Function:", cmbRegress_);
    top->addLayout(form, 3);

    auto* results = new QGridLayout;
    function_ = new QLabel(this);
    results->addWidget(function_, 0, 0, 1, 2);
    constant_ = new QLineEdit(this);
    constant_->setReadOnly(true);
    results->addWidget(new QLabel(kRegressConstantCaption, this), 1, 0);
    results->addWidget(constant_, 1, 1);
    for (size_t i = 0; i < txtRegress_.size(); ++i) {
        txtRegress_[i] = new QLineEdit(this);
        txtRegress_[i]->setReadOnly(true);
        txtRegress_[i]->setAlignment(Qt::AlignRight);
        const int row = static_cast<int>(i) + 2;
        results->addWidget(new QLabel(kRegressReadOuts[i], this), row, 0);
        results->addWidget(txtRegress_[i], row, 1);
    }
    results->setRowStretch(static_cast<int>(txtRegress_.size()) + 2, 1);
    top->addLayout(results, 2);
    layout->addLayout(top);

    plot_ = new PlotView(this);
    plot_->setMinimumSize(480, 360);
    layout->addWidget(plot_, 1);

    auto* buttons = new QHBoxLayout;
    cmd_[0] = new QPushButton(kRegressCmdPrint, this);
    cmd_[1] = new QPushButton(kRegressCmdClose, this);
    buttons->addStretch();
    buttons->addWidget(cmd_[0]);
    buttons->addWidget(cmd_[1]);
    layout->addLayout(buttons);

    auto& dialogs = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(dialogs, [this] { print(); }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(dialogs, [this] { window()->close(); }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(dialogs, [this] {
                const auto path = ctx_.dialogs.openFile(
                    {kRegressOpenTitle, kRegressXyfFilter, {}, "xyf", {}, true});
                if (path) Initialize(*path);
            }));
    connect(cmbRegress_, &QComboBox::activated, this,
            Guarded(dialogs, [this](int index) { pickForm(index); }));
    connect(plot_, &PlotView::resized, this, Guarded(dialogs, [this] { redraw(); }));

    clearResults();
    const std::string last = ctx_.settings.runTime(kKeyLastActive, kNoActiveFile);
    if (HasXyfExtension(last)) Initialize(last);
}

FrmRegress::~FrmRegress() = default;

const RegressRun* FrmRegress::run() const {
    return st_->run ? &*st_->run : nullptr;
}

void FrmRegress::Initialize(const std::string& path) {
    auto data = ctx_.session.keep(ReadXYF(path), ctx_.dialogs);
    if (!data) return;
    st_->data = std::move(data);
    st_->run.reset();
    file_->setText(QString::fromStdString(path));
    const std::array<std::string, 4> titles = {st_->data->graphTitle, st_->data->xAxis,
                                               st_->data->yAxis, st_->data->header.remarks};
    for (size_t i = 0; i < titles.size(); ++i)
        txtTitle_[i]->setText(QString::fromStdString(titles[i]));
    setWindowTitle(QString::fromStdString(std::string(kRegressCaption) + " [" + path + "]"));
    clearResults();
    // A form with C asks for it again for the new file's pairs.
    const int form = cmbRegress_->currentIndex();
    if (FormNeedsConstant(form)) {
        const QSignalBlocker block(cmbRegress_);
        cmbRegress_->setCurrentIndex(kFormLinear);
    }
    pickForm(cmbRegress_->currentIndex());
}

std::optional<double> FrmRegress::askConstant(int form) {
    const std::string title = FunctionTitle(form);
    for (;;) {
        const auto answer = ctx_.dialogs.inputBox({kRegressConstantPrompt, title, {}});
        if (!answer || QString::fromStdString(*answer).trimmed().isEmpty()) return std::nullopt;
        // Text that is no number goes through the guards as NaN, which they refuse.
        const double c = NumberOrNaN(QString::fromStdString(*answer));
        if (ShowNotices(CheckConstant(form, c, st_->data->y, DecimalSeparator()), ctx_.dialogs))
            return c;
    }
}

void FrmRegress::pickForm(int form) {
    // The list shows the earlier pick until the new one has its results.
    const int shown = st_->run ? st_->run->form : -1;
    {
        const QSignalBlocker block(cmbRegress_);
        cmbRegress_->setCurrentIndex(shown >= 0 ? shown : form);
    }
    if (!st_->data || form < 0 || form >= kRegressFormCount) return;
    RegressOptions o;
    o.form = form;
    o.decimalSeparator = DecimalSeparator();
    if (FormNeedsConstant(form)) {
        const auto c = askConstant(form);
        if (!c) return;
        o.c = *c;
    }
    RegressRun run = RunRegression(st_->data->x, st_->data->y, o);
    if (!ShowNotices(run, ctx_.dialogs)) return;
    st_->run = std::move(run);
    {
        const QSignalBlocker block(cmbRegress_);
        cmbRegress_->setCurrentIndex(form);
    }
    showRun();
}

void FrmRegress::clearResults() {
    function_->setText(QString::fromStdString(FunctionTitle(cmbRegress_->currentIndex())));
    constant_->clear();
    for (auto* box : txtRegress_) box->clear();
    plot_->canvas().Clear();
    plot_->update();
}

void FrmRegress::showRun() {
    const RegressRun& run = *st_->run;
    function_->setText(QString::fromStdString(FunctionTitle(run.form)));
    if (run.c)
        SetBoxNumber(constant_, *run.c, "#0.000");
    else
        constant_->clear();
    for (size_t i = 0; i < txtRegress_.size(); ++i)
        SetBoxNumber(txtRegress_[i], run.fit[kReadOutSlots[i]], kReadOutPatterns[i]);
    redraw();
}

void FrmRegress::redraw() {
    if (!st_->run || !st_->data) return;
    DrawRegression(plot_->canvas(), *st_->data, *st_->run, DecimalSeparator());
    plot_->update();
}

void FrmRegress::print() {
    if (!st_->run || !st_->data) return;
    PrintReport(RegressionReport(*st_->data, *st_->run), plot_->canvas(), ctx_.dialogs,
                ctx_.printer);
}

}  // namespace norvo::gui
