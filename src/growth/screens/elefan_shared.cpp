#include "growth/screens/elefan_shared.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

#include "growth/screens/frm_vbgf_plot.h"
#include "plot/render/canvas_renderer.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"

namespace norvo::gui {

QGroupBox* MakeParameterGroup(QWidget* parent, const std::array<const char*, 2>& headings,
                              const std::vector<ParameterRow>& rows) {
    auto* group = new QGroupBox(kGroupParameters, parent);
    auto* g = new QGridLayout(group);
    g->addWidget(new QLabel(headings[0], group), 0, 1);
    g->addWidget(new QLabel(headings[1], group), 0, 2);
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        const ParameterRow& row = rows[static_cast<size_t>(r)];
        g->addWidget(new QLabel(row.label, group), r + 1, 0);
        row.first->setParent(group);
        row.second->setParent(group);
        g->addWidget(row.first, r + 1, 1);
        g->addWidget(row.second, r + 1, 2);
    }
    return group;
}

QLineEdit* MakeNumberField(QWidget* parent, const QString& name) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(name);
    e->setMaximumWidth(110);
    return e;
}

QLineEdit* MakeResultField(QWidget* parent, int index) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(QString("txtELEFAN1_%1").arg(index));
    e->setReadOnly(true);
    e->setMaximumWidth(110);
    return e;
}

QComboBox* MakeStartList(QWidget* parent, const QString& name) {
    auto* c = new QComboBox(parent);
    c->setObjectName(name);
    c->setEditable(true);
    return c;
}

void ShowNumber(QLineEdit* field, const ShownNumber& n) {
    if (n.pattern.empty()) {
        field->setText(SingleText(static_cast<float>(n.value)));
    } else {
        SetBoxNumber(field, n.value, n.pattern);
    }
}

void ShowBest(const ResultFields& fields, const ElefanBest& best) {
    const auto values = ElefanBestValues(best);
    for (size_t i = 0; i < fields.size(); ++i)
        SetBoxNumber(fields[i], values[i], kElefanResultPatterns[i]);
}

void ClearFields(const ResultFields& fields) {
    for (QLineEdit* f : fields) f->clear();
}

void FillStartLists(QComboBox* samples, QComboBox* lengths, const RnLayout& layout, float ss,
                    float sl) {
    samples->clear();
    for (int s = 1; s <= layout.nS; ++s) samples->addItem(NumberText(s, "0"));
    samples->setCurrentText(NumberText(ss, "0"));
    FillLengths(samples, lengths, layout);
    lengths->setCurrentText(NumberText(sl, "0.00"));
}

void FillLengths(const QComboBox* samples, QComboBox* lengths, const RnLayout& layout) {
    lengths->clear();
    // A sample that is not a number offers no lengths.
    const std::optional<double> sample = BoxNumber(samples);
    if (!sample) return;
    for (float L : StartingLengths(layout, *sample)) lengths->addItem(NumberText(L, "0.00"));
}

QTableWidget* MakeSurfaceTable(QWidget* parent, const QString& name) {
    auto* grid = new QTableWidget(kSurfaceSize + 1, kSurfaceSize + 1, parent);
    grid->setObjectName(name);
    grid->horizontalHeader()->setVisible(false);
    grid->verticalHeader()->setVisible(false);
    grid->horizontalHeader()->setDefaultSectionSize(52);
    grid->verticalHeader()->setDefaultSectionSize(20);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    return grid;
}

void ClearSurfaceTable(QTableWidget* table) {
    table->clearContents();
    table->setItem(0, 0, new QTableWidgetItem(kSurfaceCorner));
}

void ShowSurfaceTable(QTableWidget* table, const SurfaceResult& s) {
    ClearSurfaceTable(table);
    for (int i = 0; i < kSurfaceSize; ++i) {
        table->setItem(i + 1, 0, new QTableWidgetItem(NumberText(s.kHeadings[i], "0.00")));
        table->setItem(0, i + 1, new QTableWidgetItem(NumberText(s.looHeadings[i], "0.00")));
    }
    for (int i = 0; i < kSurfaceSize; ++i) {
        for (int j = 0; j < kSurfaceSize; ++j) {
            auto* item = new QTableWidgetItem(NumberText(s.grid[i][j], "0.000"));
            item->setBackground(ToQColor(BandColour(s.band(i, j))));
            item->setForeground(Qt::black);
            table->setItem(i + 1, j + 1, item);
        }
    }
}

void ShowVbgfPlot(ShellContext& ctx, bool stored) {
    ctx.showStatus(stored ? kPlotStoredStatus : kPlotNotStoredStatus);
    if (auto* plot = dynamic_cast<FrmVbgfPlot*>(ctx.openScreen("frmVBGFPlot")))
        plot->ReadDefaults();
}

void RunElefanReport(ShellContext& ctx, const ChartCanvas& canvas, Elefan1ReportMode mode,
                     const Elefan1ReportInfo& info,
                     const std::vector<std::vector<std::string>>& surfaceTable) {
    auto* output = new OutputScreen(ctx.printer);
    ReportELEFAN1(canvas, *output, ctx.dialogs, mode, info, surfaceTable, RenderedPlotSaver());
    output->deleteLater();
}

}  // namespace norvo::gui
