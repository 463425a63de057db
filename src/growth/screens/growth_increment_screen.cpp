#include "growth/screens/growth_increment_screen.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/active_file.h"
#include "base/settings_store.h"
#include "growth/growth_increments.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {
constexpr const char* kColumns[] = {"Day",   "Month", "Year",   "Length", "Day",
                                    "Month", "Year",  "Length", "Use"};
constexpr int kUseColumn = 8;
}  // namespace

GrowthIncrementScreen::GrowthIncrementScreen(ShellContext& ctx, const std::string& objectName,
                                             const std::string& caption, QWidget* parent)
    : QWidget(parent), ctx_(ctx) {
    setObjectName(QString::fromStdString(objectName));
    setWindowTitle(QString::fromStdString(caption));
    auto* layout = new QVBoxLayout(this);
    auto* body = new QHBoxLayout;
    layout->addLayout(body, 1);

    auto* left = new QVBoxLayout;
    auto* form = new QFormLayout;
    auto* fileRow = new QHBoxLayout;
    file_ = new QLineEdit(this);
    file_->setReadOnly(true);
    open_ = new QPushButton("...", this);
    open_->setFixedWidth(32);
    fileRow->addWidget(file_);
    fileRow->addWidget(open_);
    form->addRow("File name:", fileRow);
    species_ = new QLabel(this);
    form->addRow("Species:", species_);
    left->addLayout(form);

    table_ = new QTableWidget(0, 9, this);
    QStringList heads;
    for (const char* h : kColumns) heads << h;
    table_->setHorizontalHeaderLabels(heads);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->setMinimumWidth(420);
    left->addWidget(table_, 1);

    auto* fixed = new QHBoxLayout;
    chkFixed_ = new QCheckBox(kGinUseFixedLoo, this);
    txtLoo_ = new QLineEdit(this);
    txtLoo_->setMaximumWidth(90);
    fixed->addWidget(chkFixed_);
    fixed->addWidget(new QLabel(kGinEnterLoo, this));
    fixed->addWidget(txtLoo_);
    fixed->addStretch();
    left->addLayout(fixed);

    auto* computed = new QGroupBox("Computed Parameters", this);
    auto* cForm = new QFormLayout(computed);
    for (int i = 0; i < 2; ++i) results_[i] = new QLabel(computed);
    cForm->addRow("Loo:", results_[0]);
    cForm->addRow("K:", results_[1]);
    left->addWidget(computed);
    message_ = new QLabel(this);
    message_->setWordWrap(true);
    left->addWidget(message_);

    auto* picking = new QGroupBox("Selecting Points", this);
    auto* pForm = new QFormLayout(picking);
    for (int i = 0; i < 2; ++i) {
        readOutCaptions_[i] = new QLabel(picking);
        readOuts_[i] = new QLabel(kNotAvailable, picking);
        pForm->addRow(readOutCaptions_[i], readOuts_[i]);
    }
    auto* note = new QLabel(kGinSelectNote, picking);
    note->setWordWrap(true);
    pForm->addRow(note);
    left->addWidget(picking);
    body->addLayout(left);

    tabs_ = new QTabWidget(this);
    body->addWidget(tabs_, 2);

    buttons_ = new QHBoxLayout;
    buttons_->addStretch();
    print_ = new QPushButton("&Print...", this);
    close_ = new QPushButton("&Close", this);
    buttons_->addWidget(print_);
    buttons_->addWidget(close_);
    layout->addLayout(buttons_);

    auto& dialogs = ctx_.dialogs;
    connect(open_, &QPushButton::clicked, this, Guarded(dialogs, [this] {
                const auto path =
                    ctx_.dialogs.openFile({kGinOpenTitle, kGinFilter, {}, "gin", {}, true});
                if (path) Initialize(*path);
            }));
    connect(print_, &QPushButton::clicked, this, Guarded(dialogs, [this] {
                if (!rows_.empty()) print();
            }));
    connect(close_, &QPushButton::clicked, this, Guarded(dialogs, [this] { window()->close(); }));
    connect(chkFixed_, &QCheckBox::toggled, this,
            Guarded(dialogs, [this](bool) { runRecompute(); }));
    connect(txtLoo_, &QLineEdit::editingFinished, this, Guarded(dialogs, [this] {
                if (chkFixed_->isChecked()) runRecompute();
            }));
    connect(table_, &QTableWidget::itemChanged, this,
            Guarded(dialogs, [this](QTableWidgetItem* item) {
                if (filling_ || item->column() != kUseColumn) return;
                const int row = item->row();
                if (row < 0 || row >= static_cast<int>(flags_.size())) return;
                const bool on = item->checkState() == Qt::Checked;
                if (flags_[row] != on) toggleRow(row);
            }));
}

GrowthIncrementScreen::~GrowthIncrementScreen() = default;

void GrowthIncrementScreen::loadLastActive() {
    const ActiveFileSet active(ctx_.settings);
    if (active.serves("GIN")) Initialize(active.path());
}

void GrowthIncrementScreen::Initialize(const std::string& path) {
    const auto data = ctx_.session.readGin(path, ctx_.settings, ctx_.dialogs);
    if (!data) return;
    header_ = data->header;
    header_.path = path;
    rows_ = data->rows;
    flags_.assign(rows_.size(), true);
    file_->setText(QString::fromStdString(path));
    species_->setText(QString::fromStdString(header_.speciesname));
    fillTable();
    runRecompute();
}

void GrowthIncrementScreen::fillTable() {
    filling_ = true;
    table_->setRowCount(static_cast<int>(rows_.size()));
    for (int r = 0; r < static_cast<int>(rows_.size()); ++r) {
        for (int c = 0; c < 8; ++c) {
            const bool length = c == 3 || c == 7;
            auto* item = new QTableWidgetItem(NumberText(rows_[r][c + 1], length ? "0.00" : "0"));
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            table_->setItem(r, c, item);
        }
        auto* use = new QTableWidgetItem;
        use->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        use->setCheckState(flags_[r] ? Qt::Checked : Qt::Unchecked);
        table_->setItem(r, kUseColumn, use);
    }
    filling_ = false;
}

void GrowthIncrementScreen::setFlags(const std::vector<bool>& flags) {
    flags_ = FullFlags(rows_, flags);
    flags_.resize(rows_.size());
    filling_ = true;
    for (int r = 0; r < table_->rowCount() && r < static_cast<int>(flags_.size()); ++r)
        if (auto* item = table_->item(r, kUseColumn))
            item->setCheckState(flags_[r] ? Qt::Checked : Qt::Unchecked);
    filling_ = false;
}

void GrowthIncrementScreen::toggleRow(int row) {
    if (row < 0 || row >= static_cast<int>(flags_.size())) return;
    auto flags = flags_;
    flags[row] = !flags[row];
    setFlags(flags);
    runRecompute();
}

std::optional<float> GrowthIncrementScreen::fixedLoo() const {
    if (!chkFixed_->isChecked()) return std::nullopt;
    const auto v = BoxNumber(txtLoo_);
    return v ? static_cast<float>(*v) : 0.0f;
}

void GrowthIncrementScreen::runRecompute() {
    for (auto& p : plots_) p.pick = {};
    if (rows_.empty()) return;
    recompute();
}

PlotView* GrowthIncrementScreen::addPlot(const QString& tabCaption, const std::string& xCaption,
                                         const std::string& yCaption, const std::string& xPattern,
                                         const std::string& yPattern, bool pickable) {
    auto* page = new QWidget;
    auto* pageLayout = new QVBoxLayout(page);
    auto* view = new PlotView(page);
    view->setMinimumSize(480, 360);
    pageLayout->addWidget(view, 1);
    tabs_->addTab(page, tabCaption);
    const int index = static_cast<int>(plots_.size());
    plots_.push_back({view, {}, xCaption, yCaption, xPattern, yPattern, pickable});
    if (index == 0) {
        readOutCaptions_[0]->setText(QString::fromStdString(xCaption));
        readOutCaptions_[1]->setText(QString::fromStdString(yCaption));
    }
    auto& dialogs = ctx_.dialogs;
    connect(view, &PlotView::clickedAt, this,
            Guarded(dialogs, [this, index](double x, double y) { clickPlot(index, x, y); }));
    connect(view, &PlotView::mouseMovedTo, this,
            Guarded(dialogs, [this, index](double x, double y) { movePointer(index, x, y); }));
    connect(view, &PlotView::resized, this, Guarded(dialogs, [this] { runRecompute(); }));
    return view;
}

PlotView* GrowthIncrementScreen::addPlotBelow(int index) {
    QWidget* page = plots_[index].view->parentWidget();
    auto* view = new PlotView(page);
    view->setMinimumSize(480, 240);
    page->layout()->addWidget(view);
    plots_.push_back({view, {}, {}, {}, {}, {}, false});
    return view;
}

void GrowthIncrementScreen::setPickable(int index, const PickablePlot& plot) {
    plots_[index].pick = plot;
    plots_[index].view->refresh();
}

void GrowthIncrementScreen::setResult(std::optional<float> loo, std::optional<float> k) {
    results_[0]->setText(loo ? NumberText(*loo, "0.00") : QString());
    results_[1]->setText(k ? NumberText(*k, "0.000") : QString());
}

void GrowthIncrementScreen::setMessage(const std::string& text) {
    message_->setText(QString::fromStdString(text));
}

void GrowthIncrementScreen::clickPlot(int index, double x, double y) {
    if (index < 0 || index >= static_cast<int>(plots_.size())) return;
    const Plot& p = plots_[index];
    if (!p.pickable || !p.pick.drawn) return;
    const int hit = NearestPoint(p.pick.points, x, y);
    if (hit < 0) {
        ctx_.dialogs.notify(
            {kGinClickOffText, kGinInvalidActionTitle, Buttons::Ok, Icon::Information});
        return;
    }
    toggleRow(p.pick.rowOf[hit]);
}

void GrowthIncrementScreen::movePointer(int index, double x, double y) {
    if (index < 0 || index >= static_cast<int>(plots_.size())) return;
    const Plot& p = plots_[index];
    if (!p.pickable) return;
    readOutCaptions_[0]->setText(QString::fromStdString(p.xCaption));
    readOutCaptions_[1]->setText(QString::fromStdString(p.yCaption));
    const auto& f = p.pick.frame;
    if (!p.pick.drawn || !f.inside(x, y)) {
        for (auto* r : readOuts_) r->setText(kNotAvailable);
        return;
    }
    readOuts_[0]->setText(NumberText(f.fromX(x), p.xPattern));
    readOuts_[1]->setText(NumberText(f.fromY(y), p.yPattern));
    p.view->setHotCursor(NearestPoint(p.pick.points, x, y) >= 0);
}

}  // namespace norvo::gui
