#include "growth/screens/elefan_search_page.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "growth/growth_settings.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"

namespace norvo::gui {

namespace {

constexpr const char* kLabelSeed = "Seed";
constexpr const char* kLabelStep = "Step size";

}  // namespace

// A search on the screen: the bar shows the step multiple and each new row joins the table.
class SearchRun : public ElefanRun {
  public:
    SearchRun(RunHost& host, ElefanSearchPage& page) : ElefanRun(host), page_(page) {
        page_.bar_->setValue(0);
        page_.bar_->setVisible(true);
    }
    ~SearchRun() override {
        page_.bar_->setValue(0);
        page_.bar_->setVisible(false);
    }
    SearchRun(const SearchRun&) = delete;
    SearchRun& operator=(const SearchRun&) = delete;
    void searchPass(int n) override { page_.bar_->setValue(n); }
    void searchRow(const SearchRow& row) override {
        page_.rows_.push_back(row);
        page_.appendRow(row);
    }

  private:
    ElefanSearchPage& page_;
};

ElefanSearchPage::ElefanSearchPage(ElefanShared& shared, QWidget* parent)
    : QWidget(parent), shared_(shared) {
    DialogService& dialogs = shared_.ctx.dialogs;
    auto* col = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    looSeed_ = MakeNumberField(this, "txtLoo_3");
    looStep_ = MakeNumberField(this, "txtLoo_4");
    kSeed_ = MakeNumberField(this, "txtK_2");
    kStep_ = MakeNumberField(this, "txtK_3");
    cSeed_ = MakeNumberField(this, "txtC_4");
    cStep_ = MakeNumberField(this, "txtC_3");
    wpSeed_ = MakeNumberField(this, "txtWP_4");
    wpStep_ = MakeNumberField(this, "txtWP_3");
    top->addWidget(MakeParameterGroup(this, {kLabelSeed, kLabelStep},
                                      {{{kLabelLoo, looSeed_, looStep_},
                                        {kLabelK, kSeed_, kStep_},
                                        {kLabelC, cSeed_, cStep_},
                                        {kLabelWP, wpSeed_, wpStep_}}}));

    auto* start = new QGroupBox(kGroupStart, this);
    auto* sf = new QFormLayout(start);
    opt_[0] = new QRadioButton(kVariableStart, start);
    opt_[0]->setObjectName("optSearch_0");
    opt_[1] = new QRadioButton(kConstantStart, start);
    opt_[1]->setObjectName("optSearch_1");
    opt_[0]->setChecked(true);
    sf->addRow(opt_[0]);
    sf->addRow(opt_[1]);
    ss_ = MakeStartList(start, "SSample");
    sl_ = MakeStartList(start, "SLength");
    sf->addRow(kLabelSS, ss_);
    sf->addRow(kLabelSL, sl_);
    ss_->setEnabled(false);
    sl_->setEnabled(false);
    connect(opt_[1], &QRadioButton::toggled, this, Guarded(dialogs, [this](bool on) {
                ss_->setEnabled(on);
                sl_->setEnabled(on);
            }));
    connect(ss_, &QComboBox::currentTextChanged, this, Guarded(dialogs, [this] {
                if (!filling_ && shared_.scorer) FillLengths(ss_, sl_, shared_.scorer->layout());
            }));
    top->addWidget(start);
    top->addStretch(1);
    col->addLayout(top);

    bar_ = new QProgressBar(this);
    bar_->setObjectName("barSearch");
    bar_->setRange(0, 6);
    bar_->setFormat("n = %v");
    bar_->setVisible(false);
    col->addWidget(bar_);
    table_ = new QTableWidget(0, 7, this);
    table_->setObjectName("spdSearch");
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    col->addWidget(table_, 1);
    QStringList headings;
    for (size_t c = 1; c < kSearchHeadings.size(); ++c) headings << kSearchHeadings[c];
    table_->setHorizontalHeaderLabels(headings);
}

void ElefanSearchPage::setDefaults(const ElefanDefaults& d) {
    FlagScope filling(filling_);
    ShowNumber(looSeed_, d.searchLoo);
    ShowNumber(looStep_, d.searchLooStep);
    ShowNumber(kSeed_, d.searchK);
    ShowNumber(kStep_, d.searchKStep);
    for (QLineEdit* e : {cSeed_, cStep_}) ShowNumber(e, d.c);
    for (QLineEdit* e : {wpSeed_, wpStep_}) ShowNumber(e, d.wp);
}

void ElefanSearchPage::load(float ss, float sl) {
    {
        FlagScope filling(filling_);
        FillStartLists(ss_, sl_, shared_.scorer->layout(), ss, sl);
    }
    rows_.clear();
    showRows();
}

void ElefanSearchPage::appendRow(const SearchRow& row) {
    const int r = table_->rowCount();
    table_->insertRow(r);
    table_->setVerticalHeaderItem(r, new QTableWidgetItem(QString::number(row.row)));
    const auto values = SearchRowValues(row);
    for (size_t c = 0; c < values.size(); ++c)
        table_->setItem(r, static_cast<int>(c),
                        new QTableWidgetItem(NumberText(values[c], kSearchRowPatterns[c])));
    table_->scrollToBottom();
}

void ElefanSearchPage::showRows() {
    table_->setRowCount(0);
    for (const SearchRow& row : rows_) appendRow(row);
}

void ElefanSearchPage::compute() {
    // The table starts empty (its rows come back when the search is cancelled).
    std::vector<SearchRow> previous = std::move(rows_);
    rows_.clear();
    showRows();

    AutoSearchInput in;
    in.loo = BoxSingle(looSeed_);
    in.k = BoxSingle(kSeed_);
    in.c = BoxSingle(cSeed_);
    in.wp = BoxSingle(wpSeed_);
    in.looStep = BoxSingle(looStep_);
    in.kStep = BoxSingle(kStep_);
    in.cStep = BoxSingle(cStep_);
    in.wpStep = BoxSingle(wpStep_);
    in.constantStart = opt_[1]->isChecked();
    in.sSample = BoxSingle(ss_);
    in.sLength = BoxSingle(sl_);
    if (!ShowNotices(CheckSearchSeeds(in, shared_.rn->layout()), shared_.ctx.dialogs)) return;

    std::optional<AutoSearchResult> res;
    {
        SearchRun run(shared_.host, *this);
        res = AutoSearch(*shared_.rn, in, shared_.state, run);
    }
    if (!res) {
        rows_ = std::move(previous);
        showRows();
        shared_.ctx.showStatus(kRunCancelledStatus);
        return;
    }
    shared_.state = res->state;
    rows_ = res->rows;
    const int last = table_->rowCount() - 1;
    for (int c = 0; last >= 0 && c < table_->columnCount(); ++c) {
        if (auto* item = table_->item(last, c)) {
            item->setBackground(QColor(0xFF, 0xFF, 0x00));
            item->setForeground(QColor(0xFF, 0x00, 0x00));
        }
    }
    ShowNotices(*res, shared_.ctx.dialogs);
}

void ElefanSearchPage::plot() {
    StoreGrowthParams(shared_.ctx.settings, rows_.empty() ? nullptr : &rows_.back().params,
                      kSearchRowPatterns);
    ShowVbgfPlot(shared_.ctx);
}

void ElefanSearchPage::report() {
    Elefan1ReportInfo info =
        MakeElefan1ReportInfo(shared_.file, BoxNumber(cSeed_), BoxNumber(wpSeed_));
    if (!rows_.empty()) info.results.fields = ElefanResultFields(rows_.back());
    RunElefanReport(shared_.ctx, ChartCanvas(), Elefan1ReportMode::Print, info);
}

}  // namespace norvo::gui
