#include "modal/screens/frm_linking.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QTableWidget>
#include <optional>

#include "modal/linking.h"
#include "modal/modal_plot.h"
#include "modal/screens/modal_screen_parts.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"
#include "widgets/output_screen.h"
#include "widgets/plot_view.h"

namespace norvo::gui {

namespace {
constexpr std::array<const char*, 8> kLinkColumns = {"Day1", "Month1", "Year1", "Length1",
                                                     "Day2", "Month2", "Year2", "Length2"};
constexpr std::array<const char*, 5> kMeanColumns = {"Day", "Month", "Year", "Length", "S.D."};

QTableWidget* MakeTable(QWidget* parent, const char* name, const char* const* headers, int n) {
    auto* t = new QTableWidget(0, n, parent);
    t->setObjectName(name);
    QStringList h;
    for (int i = 0; i < n; ++i) h << headers[i];
    t->setHorizontalHeaderLabels(h);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    return t;
}

std::string DateOf(const MsdRow& r) {
    return std::to_string(r.day) + "/" + std::to_string(r.month) + "/" + std::to_string(r.year);
}
}  // namespace

struct FrmLinking::State {
    MsdData msd;
    LinkState links;
    int hover = 0;
    bool loaded = false;
};

FrmLinking::FrmLinking(ShellContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), st_(std::make_unique<State>()) {
    setObjectName("frmLinking");
    setWindowTitle(kLkCaption);
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    file_ = new QLineEdit(this);
    file_->setReadOnly(true);
    for (size_t i = 0; i < cmd_.size(); ++i) cmd_[i] = new QPushButton(kLkCommands[i], this);
    cmd_[0]->setFixedWidth(32);
    top->addWidget(new QLabel("File:", this));
    top->addWidget(file_, 1);
    top->addWidget(cmd_[0]);
    layout->addLayout(top);
    auto* body = new QHBoxLayout;
    plot_ = new PlotView(this);
    plot_->setObjectName("picLinking");
    plot_->setMinimumSize(520, 380);
    plot_->setContextMenuPolicy(Qt::DefaultContextMenu);
    plot_->installEventFilter(this);
    body->addWidget(plot_, 3);
    auto* tables = new QVBoxLayout;
    grids_[0] = MakeTable(this, "grdData0", kMeanColumns.data(), 5);
    grids_[1] = MakeTable(this, "grdData1", kLinkColumns.data(), 8);
    tables->addWidget(grids_[0], 1);
    tables->addWidget(grids_[1], 1);
    growth_ = new QLabel(this);
    tables->addWidget(growth_);
    body->addLayout(tables, 2);
    layout->addLayout(body, 1);
    auto* note = new QLabel(kLkNote, this);
    note->setWordWrap(true);
    layout->addWidget(note);
    hint_ = new QLabel(this);
    layout->addWidget(hint_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (int i : {1, 2, 3, 4}) buttons->addWidget(cmd_[i]);
    layout->addLayout(buttons);

    auto& d = ctx_.dialogs;
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(d, [this] {
                const auto path =
                    ctx_.dialogs.openFile({"Open...", kModalMsdFilter, {}, "msd", {}, true});
                if (path) Initialize(*path);
            }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(d, [this] { redoAll(); }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(d, [this] { saveLinks(); }));
    connect(cmd_[3], &QPushButton::clicked, this, Guarded(d, [this] { print(); }));
    connect(cmd_[4], &QPushButton::clicked, this, Guarded(d, [this] { window()->close(); }));
    connect(plot_, &PlotView::clickedAt, this,
            Guarded(d, [this](double x, double y) { clickPlot(x, y); }));
    connect(plot_, &PlotView::mouseMovedTo, this,
            Guarded(d, [this](double x, double y) { hoverPlot(x, y); }));
    connect(plot_, &PlotView::resized, this, Guarded(d, [this] { redraw(); }));
    for (int i : {1, 2, 3}) cmd_[i]->setEnabled(false);
    if (const auto last = LastActiveOfKind(ctx_, "MSD")) Initialize(*last);
}

FrmLinking::~FrmLinking() = default;

int FrmLinking::linkCount() const {
    return static_cast<int>(st_->links.links.size());
}

bool FrmLinking::eventFilter(QObject* watched, QEvent* event) {
    if (watched == plot_ && event->type() == QEvent::MouseButtonDblClick) {
        RunCommand(ctx_.dialogs, [this] { breakSeries(); });
        return true;
    }
    if (watched == plot_ && event->type() == QEvent::ContextMenu) {
        const QPoint at = static_cast<QContextMenuEvent*>(event)->globalPos();
        RunCommand(ctx_.dialogs, [this, at] { popupChoice(ctx_.popupLinkMenu(at)); });
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void FrmLinking::Initialize(const std::string& path) {
    auto msd = ctx_.session.readMsd(path, ctx_.dialogs);
    if (!msd) return;
    st_->msd = std::move(*msd);
    st_->loaded = true;
    file_->setText(QString::fromStdString(path));
    grids_[0]->setRowCount(0);
    for (size_t i = 0; i < st_->msd.rows.size(); ++i) {
        const MsdRow& r = st_->msd.rows[i];
        const int row = static_cast<int>(i);
        grids_[0]->insertRow(row);
        const QString cells[] = {QString::number(r.day), QString::number(r.month),
                                 QString::number(r.year), NumberText(r.length, "0.00"),
                                 NumberText(r.sd, "0.00")};
        for (int c = 0; c < 5; ++c) grids_[0]->setItem(row, c, new QTableWidgetItem(cells[c]));
    }
    for (int i : {1, 2, 3}) cmd_[i]->setEnabled(true);
    redoAll();
}

void FrmLinking::redoAll() {
    st_->links = LinkState{};
    st_->links.points = st_->msd.rows;
    st_->hover = 0;
    fillLinks();
    redraw();
}

void FrmLinking::fillLinks() {
    auto* t = grids_[1];
    t->setRowCount(0);
    for (size_t i = 0; i < st_->links.links.size(); ++i) {
        const GinRow g = st_->links.links[i].gin();
        const int row = static_cast<int>(i);
        t->insertRow(row);
        for (int c = 0; c < 8; ++c)
            t->setItem(row, c,
                       new QTableWidgetItem(c == 3 || c == 7 ? NumberText(g[c + 1], "0.00")
                                                             : QString::number(g[c + 1])));
    }
    const LinkGrowth g = ComputeLinkGrowth(st_->links.links);
    growth_->setText(g.possible() ? "Loo = " + NumberText(g.loo, "0.00") +
                                        "    K = " + NumberText(g.k, "0.000")
                                  : QString("Loo = -9999    K = -9999"));
}

void FrmLinking::redraw() {
    if (!st_->loaded) return;
    DrawLinkingPlot(plot_->canvas(), st_->links, st_->hover);
    plot_->update();
}

void FrmLinking::hoverPlot(double x, double y) {
    if (!st_->loaded) return;
    const int hit = HitLinkPoint(LinkPointPositions(st_->links.points), x, y);
    plot_->setHotCursor(hit > 0);
    if (hit != st_->hover) {
        st_->hover = hit;
        redraw();
    }
    if (hit == 0) {
        hint_->setText(st_->links.open ? "Click a later mean to link it." : QString());
        return;
    }
    const MsdRow& p = st_->links.points[static_cast<size_t>(hit - 1)];
    const QString what = QString::fromStdString(DateOf(p)) + ", " + NumberText(p.length, "0.00");
    if (st_->links.open == 0)
        hint_->setText("Click to start a series at " + what + ".");
    else if (st_->links.open == hit)
        hint_->setText("The series goes on from this point.");
    else
        hint_->setText("Click to link to " + what + ".");
}

void FrmLinking::clickPlot(double x, double y) {
    if (!st_->loaded) return;
    const int hit = HitLinkPoint(LinkPointPositions(st_->links.points), x, y);
    if (hit == 0) return;
    if (hit == st_->links.open) return;
    ShowNotices(ClickPoint(st_->links, hit), ctx_.dialogs);
    fillLinks();
    redraw();
}

void FrmLinking::breakSeries() {
    BreakSeries(st_->links);
    redraw();
}

void FrmLinking::popupChoice(int index) {
    if (index == 0) ConnectFromPrevious(st_->links);
    if (index == 1) BreakSeries(st_->links);
    redraw();
}

void FrmLinking::saveLinks() {
    if (!st_->loaded) return;
    const LinkGrowth g = ComputeLinkGrowth(st_->links.links);
    if (!g.possible() && ctx_.dialogs.notify({kLkImpossibleText, kLkImpossibleTitle, Buttons::YesNo,
                                              Icon::Warning}) != Answer::Yes) {
        ctx_.dialogs.inform(kLkNotSavedText, kLkNotSavedTitle, Icon::Information);
        return;
    }
    const std::string program = ctx_.programFolder.toStdString();
    if (ctx_.dialogs.notify({kLkAskGin, kLkSaveAsTitle, Buttons::YesNo, Icon::Question}) ==
        Answer::Yes) {
        const auto path =
            ctx_.dialogs.saveFile({"Save As", kLkGinFilter, {}, "gin", {}, false, true});
        if (path) SaveLinksAsGin(*path, program, st_->msd.header, st_->links.links, ctx_.dialogs);
    }
    if (!g.possible()) return;
    if (ctx_.dialogs.notify({kLkAskLaa, kLkSaveAsTitle, Buttons::YesNo, Icon::Question}) ==
        Answer::Yes) {
        const auto path =
            ctx_.dialogs.saveFile({"Save As", kLkLaaFilter, {}, "laa", {}, false, true});
        if (path)
            SaveLinksAsLaa(*path, program, st_->msd.header, st_->links.links, g, ctx_.dialogs);
    }
}

void FrmLinking::print() {
    if (!st_->loaded) return;
    PrintReport(LinkingReport(st_->msd, st_->links, ComputeLinkGrowth(st_->links.links)),
                plot_->canvas(), ctx_.dialogs, ctx_.printer);
}

}  // namespace norvo::gui
