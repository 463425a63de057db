#include "stock/screens/frm_vpa1.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <optional>

#include "app/active_file.h"
#include "base/settings_store.h"
#include "numerics/validators.h"
#include "stock/vpa_age.h"
#include "stock/vpa_plot.h"
#include "widgets/command_boundary.h"
#include "widgets/file_name_row.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

struct FrmVpa1::State {
    std::optional<CaaData> data;
    AgeVpaOptions options;
    std::vector<float> ages;
    std::optional<AgeVpaResult> result;
    UserPoint legendAt = kVpaLegendHome;
};

FrmVpa1::FrmVpa1(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmVPA1");
    setWindowTitle(kVpa1Caption);
    auto* layout = new QHBoxLayout(this);

    auto* left = new QVBoxLayout;
    auto* form = new QFormLayout;
    const FileNameRow fileRow = AddFileNameRow(form, this, kVpa1Commands[2]);
    file_ = fileRow.file;
    cmd_[2] = fileRow.open;
    for (size_t i = 0; i < header_.size(); ++i) {
        header_[i] = new QLabel(this);
        form->addRow(kVpa1HeaderCaptions[i], header_[i]);
    }
    for (size_t i = 0; i < params_.size(); ++i) {
        params_[i] = new QLineEdit(this);
        params_[i]->setMaximumWidth(110);
        form->addRow(kVpa1Params[i], params_[i]);
    }
    SetBoxNumber(params_[0], 0.2, "0.00");
    SetBoxNumber(params_[1], 0.5, "0.00");
    SetBoxNumber(params_[2], 1, "0.00");
    left->addLayout(form);
    table_ = new QTableWidget(0, static_cast<int>(kVpa1Columns.size()), this);
    for (int c = 0; c < table_->columnCount(); ++c)
        table_->setHorizontalHeaderItem(c, new QTableWidgetItem(kVpa1Columns[c]));
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    left->addWidget(table_, 1);
    legend_ = new QCheckBox(kVpa1Legend, this);
    legend_->setChecked(true);
    left->addWidget(legend_);
    layout->addLayout(left);

    auto* right = new QVBoxLayout;
    plot_ = new PlotView(this);
    plot_->setMinimumSize(560, 420);
    right->addWidget(plot_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (int i : {0, 1, 3}) {
        cmd_[i] = new QPushButton(kVpa1Commands[i], this);
        buttons->addWidget(cmd_[i]);
    }
    right->addLayout(buttons);
    layout->addLayout(right, 1);

    auto& dialogs = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(dialogs, [this] { PlotVPA1(); }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(dialogs, [this] { print(); }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(dialogs, [this] {
                const auto path =
                    ctx_.dialogs.openFile({"Open...", kVpa1OpenFilter, {}, "caa", {}, true});
                if (path) Initialize(*path);
            }));
    connect(cmd_[3], &QPushButton::clicked, this, Guarded(dialogs, [this] { window()->close(); }));
    connect(legend_, &QCheckBox::clicked, this, Guarded(dialogs, [this] { redraw(); }));
    connect(plot_, &PlotView::clickedAt, this,
            Guarded(dialogs, [this](double x, double y) { clickPlot(x, y); }));
    connect(plot_, &PlotView::resized, this, Guarded(dialogs, [this] { redraw(); }));

    clearResult();
    const ActiveFileSet active(ctx_.settings);
    if (active.serves("CAA")) Initialize(active.path());
    if (!st_->data) file_->setText(kNoActiveFile);
}

FrmVpa1::~FrmVpa1() = default;

const AgeVpaResult* FrmVpa1::result() const {
    return st_->result ? &*st_->result : nullptr;
}

void FrmVpa1::Initialize(const std::string& path) {
    auto data = ctx_.session.readCaa(path, ctx_.dialogs);
    if (!data) return;
    st_->data = std::move(data);
    file_->setText(QString::fromStdString(path));
    header_[0]->setText(QString::fromStdString(st_->data->unitOfAge));
    header_[1]->setText(QString::fromStdString(st_->data->unitOfWeight));
    header_[2]->setText(QString::fromStdString(st_->data->header.otherId));
    setWindowTitle(QString(kVpa1Caption) + " [" + QString::fromStdString(path) + "]");
    clearResult();
    PlotVPA1();
}

void FrmVpa1::clearResult() {
    st_->result.reset();
    plot_->canvas().Clear();
    plot_->update();
    table_->setRowCount(0);
    cmd_[1]->setEnabled(false);
}

void FrmVpa1::PlotVPA1() {
    if (!st_->data) return;
    std::array<double, 3> v{};
    for (size_t i = 0; i < params_.size(); ++i) {
        const auto x = BoxNumber(params_[i]);
        if (!x || params_[i]->text().trimmed().isEmpty()) {
            ctx_.dialogs.inform(kInvalidNumber, kValidatorTitle, Icon::Warning);
            params_[i]->setFocus();
            return;
        }
        v[i] = *x;
    }
    AgeVpaOptions o;
    o.m = static_cast<float>(v[0]);
    o.ft = static_cast<float>(v[1]);
    o.dt = static_cast<float>(v[2]);
    st_->ages.clear();
    for (const auto& row : st_->data->rows) {
        st_->ages.push_back(row[0]);
        o.catches.push_back(row[1]);
    }
    AgeVpaResult r = RunAgeVpa(o);
    if (!ShowNotices(r, ctx_.dialogs)) {
        clearResult();
        return;
    }
    st_->options = o;
    st_->result = std::move(r);
    const AgeVpaResult& res = *st_->result;
    table_->setRowCount(res.n);
    for (int i = 1; i <= res.n; ++i) {
        const double cells[] = {st_->ages[i - 1], res.C[i], res.N[i], res.F[i]};
        const char* patterns[] = {"0.0", "0.00", "0.00", "0.0000"};
        for (int c = 0; c < 4; ++c)
            table_->setItem(i - 1, c, new QTableWidgetItem(NumberText(cells[c], patterns[c])));
    }
    redraw();
    cmd_[1]->setEnabled(true);
}

void FrmVpa1::redraw() {
    if (!st_->result) return;
    ChartCanvas& canvas = plot_->canvas();
    DrawVpaBars(canvas, BarsOf(*st_->result, st_->ages));
    if (legend_->isChecked()) PutLegend(canvas, kAgeLegend, st_->legendAt);
    plot_->update();
}

void FrmVpa1::clickPlot(double x, double y) {
    if (!st_->result || !legend_->isChecked()) return;
    st_->legendAt = {x, y};
    redraw();
}

void FrmVpa1::print() {
    if (!st_->result || !st_->data) return;
    PrintReport(AgeVpaReport(*st_->data, st_->options, *st_->result), plot_->canvas(), ctx_.dialogs,
                ctx_.printer);
}

}  // namespace norvo::gui
