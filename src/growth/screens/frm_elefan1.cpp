#include "growth/screens/frm_elefan1.h"
#include "growth/screens/frm_vbgf_plot.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QSplitter>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <filesystem>

#include "base/basic.h"
#include "base/error_report.h"
#include "base/format.h"
#include "chart/kind_a.h"
#include "chart/report.h"
#include "data/lfq_file.h"
#include "growth/elefan_search_plot.h"
#include "numerics/text_convert.h"
#include "plot/render/canvas_renderer.h"
#include "widgets/output_screen.h"

namespace norvo::gui {

namespace {

constexpr const char* kLabelLoo = "Loo:";
constexpr const char* kLabelK = "K:";
constexpr const char* kLabelC = "C:";
constexpr const char* kLabelWP = "WP:";
constexpr const char* kLabelSS = "Starting sample:";
constexpr const char* kLabelSL = "Starting length:";
constexpr const char* kLabelFrom = "From";
constexpr const char* kLabelTo = "To";
constexpr const char* kLabelSeed = "Seed";
constexpr const char* kLabelStep = "Step size";
constexpr const char* kLabelSpan = "Span:";
constexpr const char* kLabelFineSize = "Points per axis:";
constexpr const char* kGroupParameters = "Parameters";
constexpr const char* kGroupResults = "Results";
constexpr const char* kGroupTrend = "Trend line";
constexpr const char* kGroupStart = "Starting point";
constexpr std::array<const char*, 7> kResultLabels = {
    "Loo:", "K:", "C:", "WP:", "SS:", "SL:", "Rn:"};
constexpr std::array<const char*, 7> kResultFormats = {"0.00", "0.000", "0.000", "0.000",
                                                       "0",    "0.00",  "0.000"};
// Plot settings keys, in the order of the result fields.
constexpr std::array<const char*, 6> kLastKeys = {"LastLoo", "LastK",  "LastC",
                                                  "LastWP",  "LastSS", "LastSL"};

enum Tab { kGeneral = 0, kKScanTab = 1, kSurfaceTab = 2, kSearchTab = 3 };

float FieldValue(const QLineEdit* e) {
    return TextToSingle(e->text().toStdString());
}
float FieldValue(const QComboBox* c) {
    return TextToSingle(c->currentText().toStdString());
}
QString Q(const std::string& s) {
    return QString::fromStdString(s);
}
QColor ToQColor(Colour c) {
    return QColor((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF);
}

}  // namespace

// Shows a chart canvas scaled to the widget.
class CanvasView : public QWidget {
  public:
    explicit CanvasView(QWidget* parent) : QWidget(parent) {
        setMinimumSize(400, 300);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        setAutoFillBackground(false);
    }
    ChartCanvas canvas;

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.fillRect(rect(), Qt::white);
        PaintCanvas(p, canvas, QRectF(rect()));
    }
};

// Reports a run's progress on the screen and lets the Cancel button through.
class ScreenSink : public SearchSink {
  public:
    explicit ScreenSink(FrmElefan1& f) : f_(f) {}
    void progress(int done, int total) override {
        f_.progress_->setRange(0, total);
        f_.progress_->setValue(done);
        f_.step();
    }
    bool cancelled() override {
        f_.step();
        return f_.cancelRequested_;
    }
    void kscanColumn(int, float k, float rn) override {
        const UserPoint p{KScanX(k), KScanY(rn)};
        if (p.x > kFrameLeft && last_.x > kFrameLeft)
            f_.picELEFAN1_->canvas.Line(last_.x, last_.y, p.x, p.y, kRed);
        last_ = p;
        f_.picELEFAN1_->update();
    }
    void searchPass(int n) override { f_.barSearch_->setValue(n); }
    void searchRow(const SearchRow& row) override {
        auto* t = f_.spdSearch_;
        const int r = t->rowCount();
        t->insertRow(r);
        const auto texts = SearchRowTexts(row);
        t->setVerticalHeaderItem(r, new QTableWidgetItem(Q(texts[0])));
        for (int c = 1; c < 8; ++c) t->setItem(r, c - 1, new QTableWidgetItem(Q(texts[c])));
        t->scrollToBottom();
    }

  private:
    FrmElefan1& f_;
    UserPoint last_{0, 0};
};

FrmElefan1::FrmElefan1(ShellContext& ctx, QWidget* parent, ScorerFactory factory)
    : QWidget(parent), ctx_(ctx), factory_(std::move(factory)) {
    setObjectName("frmELEFAN1");
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    tabs_->addTab(buildGeneral(), kTabGeneral);
    tabs_->addTab(buildKScan(), kTabKScan);
    tabs_->addTab(buildSurface(), kTabSurface);
    tabs_->addTab(buildSearch(), kTabSearch);
    layout->addWidget(tabs_, 1);

    auto* buttons = new QHBoxLayout;
    const std::array<const char*, 5> texts = {kCmdCompute, kCmdReport, kCmdClose, kCmdOpen,
                                              kCmdPlot};
    for (int i = 0; i < 5; ++i) {
        cmd_[i] = new QPushButton(texts[i], this);
        cmd_[i]->setObjectName(QString("cmdELEFAN1_%1").arg(i));
        connect(cmd_[i], &QPushButton::clicked, this, [this, i] { cmdELEFAN1(i); });
        buttons->addWidget(cmd_[i]);
    }
    progress_ = new QProgressBar(this);
    progress_->setVisible(false);
    cancel_ = new QPushButton(kCmdCancel, this);
    cancel_->setObjectName("cmdCancel");
    cancel_->setVisible(false);
    connect(cancel_, &QPushButton::clicked, this, [this] { cancelRequested_ = true; });
    buttons->addWidget(progress_, 1);
    buttons->addWidget(cancel_);
    layout->addLayout(buttons);

    connect(tabs_, &QTabWidget::currentChanged, this,
            [this](int tab) { cmd_[4]->setEnabled(tab != kGeneral); });
    cmd_[4]->setEnabled(false);
    setCaption();

    const std::string last = ctx_.settings.runTime(kKeyLastActive, kNoActiveFile);
    if (last.size() >= 3) {
        std::string kind = last.substr(last.size() - 3);
        for (auto& ch : kind) ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
        if (kind == "LFQ") Initialize(last);
    }
}

FrmElefan1::~FrmElefan1() = default;

const ChartCanvas& FrmElefan1::kscanCanvas() const {
    return picELEFAN1_->canvas;
}
const ChartCanvas& FrmElefan1::surfaceCanvas() const {
    return heatMap_->canvas;
}

// ---- building ------------------------------------------------------------------------------

namespace {

QLineEdit* NumberField(QWidget* parent, const QString& name) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(name);
    e->setMaximumWidth(110);
    return e;
}

QLineEdit* ResultField(QWidget* parent, int index) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(QString("txtELEFAN1_%1").arg(index));
    e->setReadOnly(true);
    e->setMaximumWidth(110);
    return e;
}

}  // namespace

QWidget* FrmElefan1::buildGeneral() {
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    for (int i = 0; i < 6; ++i) {
        txtElefan_[i] = ResultField(page, i);
        txtElefan_[i]->setMaximumWidth(QWIDGETSIZE_MAX);
        form->addRow(kGeneralCaptions[i], txtElefan_[i]);
    }
    return page;
}

QWidget* FrmElefan1::buildKScan() {
    auto* page = new QWidget;
    auto* row = new QHBoxLayout(page);
    auto* left = new QVBoxLayout;
    auto* params = new QGroupBox(kGroupParameters, page);
    auto* pf = new QFormLayout(params);
    txtLoo_[2] = NumberField(params, "txtLoo_2");
    txtC_[2] = NumberField(params, "txtC_2");
    txtWP_[2] = NumberField(params, "txtWP_2");
    pf->addRow(kLabelLoo, txtLoo_[2]);
    pf->addRow(kLabelC, txtC_[2]);
    pf->addRow(kLabelWP, txtWP_[2]);
    chkSP_ = new QCheckBox(kFixStartingPoint, params);
    chkSP_->setObjectName("chkSP");
    pf->addRow(chkSP_);
    txtSS_ = new QComboBox(params);
    txtSS_->setObjectName("txtSS");
    txtSS_->setEditable(true);
    txtSL_ = new QComboBox(params);
    txtSL_->setObjectName("txtSL");
    txtSL_->setEditable(true);
    pf->addRow(kLabelSS, txtSS_);
    pf->addRow(kLabelSL, txtSL_);
    left->addWidget(params);

    auto* results = new QGroupBox(kGroupResults, page);
    auto* rf = new QFormLayout(results);
    for (int i = 0; i < 7; ++i) {
        txtElefan_[6 + i] = ResultField(results, 6 + i);
        rf->addRow(kResultLabels[i], txtElefan_[6 + i]);
    }
    left->addWidget(results);

    auto* trend = new QGroupBox(kGroupTrend, page);
    auto* tf = new QFormLayout(trend);
    chkTrend_ = new QCheckBox(kApplyTrendLine, trend);
    chkTrend_->setObjectName("chkELEFAN1");
    tf->addRow(chkTrend_);
    hscr_ = new QScrollBar(Qt::Horizontal, trend);
    hscr_->setObjectName("hscrELEFAN1");
    hscr_->setRange(1, 51);
    hscr_->setValue(5);
    spanLabel_ = new QLabel("5", trend);
    auto* span = new QHBoxLayout;
    span->addWidget(hscr_, 1);
    span->addWidget(spanLabel_);
    tf->addRow(kLabelSpan, span);
    for (int i = 0; i < 7; ++i) {
        txtElefan_[13 + i] = ResultField(trend, 13 + i);
        tf->addRow(kResultLabels[i], txtElefan_[13 + i]);
    }
    left->addWidget(trend);
    left->addStretch(1);
    row->addLayout(left);

    picELEFAN1_ = new CanvasView(page);
    picELEFAN1_->setObjectName("picELEFAN1");
    row->addWidget(picELEFAN1_, 1);

    connect(chkSP_, &QCheckBox::toggled, this, [this](bool on) {
        txtSS_->setEnabled(on);
        txtSL_->setEnabled(on);
        clearKScanPlot();
    });
    txtSS_->setEnabled(false);
    txtSL_->setEnabled(false);
    connect(txtSS_, &QComboBox::currentTextChanged, this, [this] {
        if (filling_) return;
        fillLengths(txtSS_, txtSL_);
        clearKScanPlot();
    });
    connect(txtSL_, &QComboBox::currentTextChanged, this, [this] {
        if (!filling_) clearKScanPlot();
    });
    for (QLineEdit* e : {txtLoo_[2], txtC_[2], txtWP_[2]})
        connect(e, &QLineEdit::textChanged, this, [this] {
            if (!filling_) clearKScanPlot();
        });
    connect(chkTrend_, &QCheckBox::toggled, this, [this](bool on) {
        if (filling_) return;
        if (on) {
            KScanSmooth();
        } else if (!picOriginal_.empty()) {
            picELEFAN1_->canvas.PutImage(picOriginal_);
            picELEFAN1_->update();
        }
    });
    connect(hscr_, &QScrollBar::valueChanged, this, [this](int w) {
        spanLabel_->setText(QString::number(w));
        if (chkTrend_->isChecked()) KScanSmooth();
    });
    return page;
}

QWidget* FrmElefan1::buildSurface() {
    auto* page = new QWidget;
    auto* col = new QVBoxLayout(page);
    auto* top = new QHBoxLayout;
    auto* params = new QGroupBox(kGroupParameters, page);
    auto* g = new QGridLayout(params);
    g->addWidget(new QLabel(kLabelFrom, params), 0, 1);
    g->addWidget(new QLabel(kLabelTo, params), 0, 2);
    txtK_[0] = NumberField(params, "txtK_0");
    txtK_[1] = NumberField(params, "txtK_1");
    txtLoo_[0] = NumberField(params, "txtLoo_0");
    txtLoo_[1] = NumberField(params, "txtLoo_1");
    txtC_[0] = NumberField(params, "txtC_0");
    txtC_[1] = NumberField(params, "txtC_1");
    txtWP_[0] = NumberField(params, "txtWP_0");
    txtWP_[1] = NumberField(params, "txtWP_1");
    txtC_[1]->setEnabled(false);
    txtWP_[1]->setEnabled(false);
    const std::array<std::pair<const char*, std::pair<QLineEdit*, QLineEdit*>>, 4> rows = {
        {{kLabelK, {txtK_[0], txtK_[1]}},
         {kLabelLoo, {txtLoo_[0], txtLoo_[1]}},
         {kLabelC, {txtC_[0], txtC_[1]}},
         {kLabelWP, {txtWP_[0], txtWP_[1]}}}};
    for (int r = 0; r < 4; ++r) {
        g->addWidget(new QLabel(rows[r].first, params), r + 1, 0);
        g->addWidget(rows[r].second.first, r + 1, 1);
        g->addWidget(rows[r].second.second, r + 1, 2);
        for (QLineEdit* e : {rows[r].second.first, rows[r].second.second})
            connect(e, &QLineEdit::textChanged, this, [this] {
                if (!filling_) clearGrid();
            });
    }
    top->addWidget(params);
    auto* start = new QGroupBox(kGroupStart, page);
    auto* sf = new QFormLayout(start);
    txtSS2_ = new QComboBox(start);
    txtSS2_->setObjectName("txtSS2");
    txtSS2_->setEditable(true);
    txtSL2_ = new QComboBox(start);
    txtSL2_->setObjectName("txtSL2");
    txtSL2_->setEditable(true);
    sf->addRow(kLabelSS, txtSS2_);
    sf->addRow(kLabelSL, txtSL2_);
    fineSize_ = new QSpinBox(start);
    fineSize_->setObjectName("spnFineSize");
    fineSize_->setRange(21, 201);
    fineSize_->setValue(101);
    sf->addRow(kLabelFineSize, fineSize_);
    auto* fine = new QPushButton(kCmdFineSurface, start);
    fine->setObjectName("cmdFineSurface");
    sf->addRow(fine);
    connect(fine, &QPushButton::clicked, this, [this] { ComputeFinerSurface(fineSize_->value()); });
    connect(txtSS2_, &QComboBox::currentTextChanged, this, [this] {
        if (!filling_) fillLengths(txtSS2_, txtSL2_);
    });
    top->addWidget(start);
    top->addStretch(1);
    col->addLayout(top);

    auto* split = new QSplitter(Qt::Horizontal, page);
    grid_ = new QTableWidget(kSurfaceSize + 1, kSurfaceSize + 1, split);
    grid_->setObjectName("grdELEFAN1");
    grid_->horizontalHeader()->setVisible(false);
    grid_->verticalHeader()->setVisible(false);
    grid_->horizontalHeader()->setDefaultSectionSize(52);
    grid_->verticalHeader()->setDefaultSectionSize(20);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    heatMap_ = new CanvasView(split);
    heatMap_->setObjectName("picSurface");
    heatMap_->setMinimumSize(300, 250);
    split->addWidget(grid_);
    split->addWidget(heatMap_);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 2);
    col->addWidget(split, 1);
    clearGrid();
    return page;
}

QWidget* FrmElefan1::buildSearch() {
    auto* page = new QWidget;
    auto* col = new QVBoxLayout(page);
    auto* top = new QHBoxLayout;
    auto* params = new QGroupBox(kGroupParameters, page);
    auto* g = new QGridLayout(params);
    g->addWidget(new QLabel(kLabelSeed, params), 0, 1);
    g->addWidget(new QLabel(kLabelStep, params), 0, 2);
    txtLoo_[3] = NumberField(params, "txtLoo_3");
    txtLoo_[4] = NumberField(params, "txtLoo_4");
    txtK_[2] = NumberField(params, "txtK_2");
    txtK_[3] = NumberField(params, "txtK_3");
    txtC_[4] = NumberField(params, "txtC_4");
    txtC_[3] = NumberField(params, "txtC_3");
    txtWP_[4] = NumberField(params, "txtWP_4");
    txtWP_[3] = NumberField(params, "txtWP_3");
    const std::array<std::pair<const char*, std::pair<QLineEdit*, QLineEdit*>>, 4> rows = {
        {{kLabelLoo, {txtLoo_[3], txtLoo_[4]}},
         {kLabelK, {txtK_[2], txtK_[3]}},
         {kLabelC, {txtC_[4], txtC_[3]}},
         {kLabelWP, {txtWP_[4], txtWP_[3]}}}};
    for (int r = 0; r < 4; ++r) {
        g->addWidget(new QLabel(rows[r].first, params), r + 1, 0);
        g->addWidget(rows[r].second.first, r + 1, 1);
        g->addWidget(rows[r].second.second, r + 1, 2);
    }
    top->addWidget(params);
    auto* start = new QGroupBox(kGroupStart, page);
    auto* sf = new QFormLayout(start);
    optSearch_[0] = new QRadioButton(kVariableStart, start);
    optSearch_[0]->setObjectName("optSearch_0");
    optSearch_[1] = new QRadioButton(kConstantStart, start);
    optSearch_[1]->setObjectName("optSearch_1");
    optSearch_[0]->setChecked(true);
    sf->addRow(optSearch_[0]);
    sf->addRow(optSearch_[1]);
    sSample_ = new QComboBox(start);
    sSample_->setObjectName("SSample");
    sSample_->setEditable(true);
    sLength_ = new QComboBox(start);
    sLength_->setObjectName("SLength");
    sLength_->setEditable(true);
    sf->addRow(kLabelSS, sSample_);
    sf->addRow(kLabelSL, sLength_);
    sSample_->setEnabled(false);
    sLength_->setEnabled(false);
    connect(optSearch_[1], &QRadioButton::toggled, this, [this](bool on) {
        sSample_->setEnabled(on);
        sLength_->setEnabled(on);
    });
    connect(sSample_, &QComboBox::currentTextChanged, this, [this] {
        if (!filling_) fillLengths(sSample_, sLength_);
    });
    top->addWidget(start);
    top->addStretch(1);
    col->addLayout(top);
    barSearch_ = new QProgressBar(page);
    barSearch_->setObjectName("barSearch");
    barSearch_->setRange(0, 6);
    barSearch_->setFormat("n = %v");
    barSearch_->setVisible(false);
    col->addWidget(barSearch_);
    spdSearch_ = new QTableWidget(0, 7, page);
    spdSearch_->setObjectName("spdSearch");
    spdSearch_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    col->addWidget(spdSearch_, 1);
    QStringList headings;
    for (int c = 1; c < 8; ++c) headings << kSearchHeadings[c];
    spdSearch_->setHorizontalHeaderLabels(headings);
    return page;
}

// ---- loading -------------------------------------------------------------------------------

void FrmElefan1::setCaption() {
    setWindowTitle(path_.empty() ? QString(kElefanCaptionEmpty)
                                 : Q(kElefanCaptionPrefix + path_ + kElefanCaptionSuffix));
}

void FrmElefan1::ReadDefaultsELEFAN() {
    filling_ = true;
    const double lmax = TextToSingle(txtElefan_[4]->text().toStdString());
    txtLoo_[0]->setText(Q(Format(Int(lmax / 2), "0.00")));
    txtLoo_[1]->setText(Q(Format(Int(lmax * 1.5) + 1, "0")));
    txtLoo_[2]->setText(Q(Format(lmax * 1.05, "0.00")));
    txtLoo_[3]->setText(Q(Format(lmax * 1.05, "0.00")));
    txtLoo_[4]->setText("0.10");
    txtK_[0]->setText("0.01");
    txtK_[1]->setText("10");
    txtK_[2]->setText("1");
    txtK_[3]->setText("0.10");
    for (int i = 0; i < 5; ++i) {
        txtC_[i]->setText("0.00");
        txtWP_[i]->setText("0.00");
    }
    filling_ = false;
}

void FrmElefan1::fillLengths(QComboBox* samples, QComboBox* lengths) {
    if (!scorer_) return;
    const RnLayout& lay = scorer_->layout();
    const bool was = filling_;
    filling_ = true;
    lengths->clear();
    try {
        const int s = static_cast<int>(FieldValue(samples));
        if (s >= 1 && s <= lay.nS) {
            const float half = R4(lay.ci / 2.0);
            ForSingle(R4(static_cast<double>(lay.sampleFirstMid[s - 1]) - half),
                      R4(static_cast<double>(lay.sampleLastMid[s - 1]) + half), half,
                      [&](float L) { lengths->addItem(Q(Format(L, "0.00"))); });
        }
    } catch (const Fault&) {
        // A sample number that is not a number lists no lengths.
    }
    filling_ = was;
}

void FrmElefan1::Initialize(const std::string& path) {
    try {
        ctx_.session.readLfq(path, ctx_.dialogs);
        if (ctx_.session.fileReadFailed) return;
        const LfqData& d = ctx_.session.lfqData;
        path_ = path;
        filling_ = true;
        txtElefan_[0]->setText(Q(std::filesystem::path(path).filename().string()));
        txtElefan_[1]->setText(Q(d.speciesname));
        txtElefan_[2]->setText(Q(d.otherId));
        txtElefan_[3]->setText(Q(Format(d.classInterval, "0.00")));
        txtElefan_[4]->setText(Q(Format(d.largestMl, "0.00")));
        txtElefan_[5]->setText(Q(d.unitOfMeasurement));
        filling_ = false;
        ReadDefaultsELEFAN();

        rn_.reset();
        scorer_ = factory_(d);
        rn_ = std::make_unique<ParallelRn>(*scorer_, DefaultSearchThreads());
        const float loo = FieldValue(txtLoo_[2]);
        const auto [ss, sl] = scorer_->defaultStart(loo);
        state_ = {loo, 1, 0, 0, ss, sl};

        filling_ = true;
        const QString ssText = Q(Format(ss, "0"));
        const QString slText = Q(Format(sl, "0.00"));
        for (auto [samples, lengths] : {std::pair{txtSS_, txtSL_}, std::pair{txtSS2_, txtSL2_},
                                        std::pair{sSample_, sLength_}}) {
            samples->clear();
            for (int s = 1; s <= scorer_->layout().nS; ++s) samples->addItem(QString::number(s));
            samples->setCurrentText(ssText);
            fillLengths(samples, lengths);
            lengths->setCurrentText(slText);
        }
        filling_ = false;
        kscan_.reset();
        surface_.reset();
        for (int i = 6; i < 20; ++i) txtElefan_[i]->clear();
        clearKScanPlot();
        clearGrid();
        spdSearch_->setRowCount(0);
        setCaption();
    } catch (...) {
        filling_ = false;
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

// ---- clearing ------------------------------------------------------------------------------

void FrmElefan1::clearGrid() {
    surface_.reset();
    grid_->clearContents();
    grid_->setItem(0, 0, new QTableWidgetItem(kSurfaceCorner));
    heatMap_->canvas.Reset();
    heatMap_->update();
}

void FrmElefan1::clearKScanPlot() {
    picELEFAN1_->canvas.Reset();
    picOriginal_ = {};
    picELEFAN1_->update();
    for (int i = 13; i < 20; ++i) txtElefan_[i]->clear();
    const bool was = filling_;
    filling_ = true;
    chkTrend_->setChecked(false);
    filling_ = was;
}

// ---- commands ------------------------------------------------------------------------------

void FrmElefan1::cmdELEFAN1(int index) {
    if (running_) return;
    try {
        switch (index) {
            case 0:
                if (!rn_) return;
                switch (tabs_->currentIndex()) {
                    case kKScanTab:
                        runKScan();
                        break;
                    case kSurfaceTab:
                        runSurface();
                        break;
                    case kSearchTab:
                        runSearch();
                        break;
                    default:
                        break;
                }
                break;
            case 1:
                reportCommand();
                break;
            case 2:
                if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
                    sub->close();
                } else {
                    close();
                }
                break;
            case 3:
                openCommand();
                break;
            case 4:
                plotCommand();
                break;
            default:
                break;
        }
    } catch (...) {
        if (running_) endRun();
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

void FrmElefan1::beginRun() {
    running_ = true;
    cancelRequested_ = false;
    tabs_->setEnabled(false);
    for (auto* b : cmd_) b->setEnabled(false);
    progress_->setValue(0);
    progress_->setVisible(true);
    cancel_->setVisible(true);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (QWidget* w = window()) w->installEventFilter(this);
}

void FrmElefan1::endRun() {
    if (QWidget* w = window()) w->removeEventFilter(this);
    QApplication::restoreOverrideCursor();
    progress_->setVisible(false);
    cancel_->setVisible(false);
    tabs_->setEnabled(true);
    for (auto* b : cmd_) b->setEnabled(true);
    cmd_[4]->setEnabled(tabs_->currentIndex() != kGeneral);
    running_ = false;
}

void FrmElefan1::step() {
    if (onStep) onStep();
    QCoreApplication::processEvents();
}

// A window may not close under a running computation: closing asks for a cancel instead.
bool FrmElefan1::eventFilter(QObject* watched, QEvent* event) {
    if (running_ && event->type() == QEvent::Close) {
        cancelRequested_ = true;
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void FrmElefan1::runKScan() {
    KScanInput in;
    in.loo = FieldValue(txtLoo_[2]);
    in.c = FieldValue(txtC_[2]);
    in.wp = FieldValue(txtWP_[2]);
    in.fixedStart = chkSP_->isChecked();
    in.ss = FieldValue(txtSS_);
    in.sl = FieldValue(txtSL_);
    const CanvasImage before = picELEFAN1_->canvas.Image();
    beginRun();
    DrawKScanFrame(picELEFAN1_->canvas, in.loo);
    ScreenSink sink(*this);
    auto res = KScan(*rn_, in, sink);
    endRun();
    if (!res) {
        picELEFAN1_->canvas.PutImage(before);
        picELEFAN1_->update();
        ctx_.showStatus(kRunCancelledStatus);
        return;
    }
    kscan_ = std::move(res);
    state_ = kscan_->state;
    const ElefanBest& b = kscan_->best;
    const std::array<double, 7> values = {b.params.loo, b.params.k,  b.params.c, b.params.wp,
                                          b.params.ss,  b.params.sl, b.rn};
    for (int i = 0; i < 7; ++i) txtElefan_[6 + i]->setText(Q(Format(values[i], kResultFormats[i])));
    for (int i = 13; i < 20; ++i) txtElefan_[i]->clear();
    drawKScan();
    filling_ = true;
    chkTrend_->setChecked(false);
    filling_ = false;
}

void FrmElefan1::drawKScan() {
    ChartCanvas& c = picELEFAN1_->canvas;
    c.Reset();
    DrawKScanFrame(c, FieldValue(txtLoo_[2]));
    DrawKScanLine(c, kscan_->table, kscan_->columns);
    picOriginal_ = c.Image();
    picELEFAN1_->update();
}

void FrmElefan1::KScanSmooth() {
    try {
        if (!kscan_ || picOriginal_.empty()) return;
        const int w = hscr_->value();
        const ElefanBest b = norvo::KScanSmooth(kscan_->table, w, FieldValue(txtLoo_[2]),
                                                FieldValue(txtC_[2]), FieldValue(txtWP_[2]));
        state_.loo = b.params.loo;
        state_.k = b.params.k;
        state_.ss = b.params.ss;
        state_.sl = b.params.sl;
        picELEFAN1_->canvas.PutImage(picOriginal_);
        DrawKScanTrend(picELEFAN1_->canvas, kscan_->table, w);
        picELEFAN1_->update();
        const std::array<double, 7> values = {b.params.loo, b.params.k,  b.params.c, b.params.wp,
                                              b.params.ss,  b.params.sl, b.rn};
        for (int i = 0; i < 7; ++i)
            txtElefan_[13 + i]->setText(Q(Format(values[i], kResultFormats[i])));
    } catch (...) {
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

void FrmElefan1::runSurface() {
    SurfaceInput in;
    in.kFrom = FieldValue(txtK_[0]);
    in.kTo = FieldValue(txtK_[1]);
    in.looFrom = FieldValue(txtLoo_[0]);
    in.looTo = FieldValue(txtLoo_[1]);
    in.c = FieldValue(txtC_[0]);
    in.wp = FieldValue(txtWP_[0]);
    in.ss = FieldValue(txtSS2_);
    in.sl = FieldValue(txtSL2_);
    if (!CheckSurfaceInput(in, ctx_.dialogs)) return;
    beginRun();
    ScreenSink sink(*this);
    auto res = ResponseSurface(*rn_, in, state_, sink);
    endRun();
    if (!res) {
        ctx_.showStatus(kRunCancelledStatus);
        return;
    }
    state_ = res->state;
    showSurface(*res);
    surface_ = std::move(res);
}

void FrmElefan1::showSurface(const SurfaceResult& s) {
    grid_->clearContents();
    grid_->setItem(0, 0, new QTableWidgetItem(kSurfaceCorner));
    for (int i = 0; i < kSurfaceSize; ++i) {
        grid_->setItem(i + 1, 0, new QTableWidgetItem(Q(Format(s.kHeadings[i], "0.00"))));
        grid_->setItem(0, i + 1, new QTableWidgetItem(Q(Format(s.looHeadings[i], "0.00"))));
    }
    for (int i = 0; i < kSurfaceSize; ++i) {
        for (int j = 0; j < kSurfaceSize; ++j) {
            auto* item = new QTableWidgetItem(Q(Format(s.grid[i][j], "0.000")));
            item->setBackground(ToQColor(BandColour(s.band(i, j))));
            item->setForeground(Qt::black);
            grid_->setItem(i + 1, j + 1, item);
        }
    }
    DrawSurfaceHeatMap(heatMap_->canvas, s);
    heatMap_->update();
}

void FrmElefan1::ComputeFinerSurface(int n) {
    if (!rn_ || running_) return;
    try {
        SurfaceInput in;
        in.kFrom = FieldValue(txtK_[0]);
        in.kTo = FieldValue(txtK_[1]);
        in.looFrom = FieldValue(txtLoo_[0]);
        in.looTo = FieldValue(txtLoo_[1]);
        in.c = FieldValue(txtC_[0]);
        in.wp = FieldValue(txtWP_[0]);
        in.ss = FieldValue(txtSS2_);
        in.sl = FieldValue(txtSL2_);
        if (!CheckSurfaceInput(in, ctx_.dialogs)) return;
        beginRun();
        ScreenSink sink(*this);
        auto fs = ComputeFineSurface(*rn_, in, n, sink);
        endRun();
        if (!fs) {
            ctx_.showStatus(kRunCancelledStatus);
            return;
        }
        DrawSurfaceHeatMap(heatMap_->canvas, *fs);
        heatMap_->update();
    } catch (...) {
        if (running_) endRun();
        ReportDefect(ctx_.dialogs, DescribeCurrentFailure());
    }
}

void FrmElefan1::runSearch() {
    // InitializeAutoSearch: an empty table with its headings.
    std::vector<std::array<QString, 8>> previous;
    for (int r = 0; r < spdSearch_->rowCount(); ++r) {
        std::array<QString, 8> row;
        row[0] = spdSearch_->verticalHeaderItem(r) ? spdSearch_->verticalHeaderItem(r)->text()
                                                   : QString();
        for (int c = 0; c < 7; ++c)
            row[c + 1] = spdSearch_->item(r, c) ? spdSearch_->item(r, c)->text() : QString();
        previous.push_back(row);
    }
    spdSearch_->setRowCount(0);

    AutoSearchInput in;
    in.loo = FieldValue(txtLoo_[3]);
    in.k = FieldValue(txtK_[2]);
    in.c = FieldValue(txtC_[4]);
    in.wp = FieldValue(txtWP_[4]);
    in.looStep = FieldValue(txtLoo_[4]);
    in.kStep = FieldValue(txtK_[3]);
    in.cStep = FieldValue(txtC_[3]);
    in.wpStep = FieldValue(txtWP_[3]);
    in.constantStart = optSearch_[1]->isChecked();
    in.sSample = FieldValue(sSample_);
    in.sLength = FieldValue(sLength_);
    if (!CheckSearchSeeds(in, rn_->layout(), ctx_.dialogs)) return;

    beginRun();
    barSearch_->setValue(0);
    barSearch_->setVisible(true);
    ScreenSink sink(*this);
    auto res = AutoSearch(*rn_, in, state_, sink);
    barSearch_->setValue(0);
    barSearch_->setVisible(false);
    endRun();
    if (!res) {
        spdSearch_->setRowCount(0);
        for (const auto& row : previous) {
            const int r = spdSearch_->rowCount();
            spdSearch_->insertRow(r);
            spdSearch_->setVerticalHeaderItem(r, new QTableWidgetItem(row[0]));
            for (int c = 0; c < 7; ++c) spdSearch_->setItem(r, c, new QTableWidgetItem(row[c + 1]));
        }
        ctx_.showStatus(kRunCancelledStatus);
        return;
    }
    state_ = res->state;
    const int last = spdSearch_->rowCount() - 1;
    for (int c = 0; last >= 0 && c < 7; ++c) {
        if (auto* item = spdSearch_->item(last, c)) {
            item->setBackground(QColor(0xFF, 0xFF, 0x00));
            item->setForeground(QColor(0xFF, 0x00, 0x00));
        }
    }
    NotifySearchCompleted(ctx_.dialogs);
}

void FrmElefan1::plotCommand() {
    const int tab = tabs_->currentIndex();
    if (tab == kSurfaceTab) {
        if (!ctx_.dialogs.askYesNo(kSurfaceWarning, kSurfaceWarningTitle, Icon::Warning)) return;
        ctx_.showStatus(kPlotStoredStatus);
        openVbgfPlot();
        return;
    }
    std::array<QString, 6> values;
    if (tab == kKScanTab) {
        for (int i = 0; i < 6; ++i) values[i] = txtElefan_[6 + i]->text();
    } else if (tab == kSearchTab) {
        const int last = spdSearch_->rowCount() - 1;
        for (int i = 0; i < 6 && last >= 0; ++i)
            if (auto* item = spdSearch_->item(last, i)) values[i] = item->text();
    } else {
        return;
    }
    for (int i = 0; i < 6; ++i) ctx_.settings.setRunTime(kLastKeys[i], values[i].toStdString());
    ctx_.showStatus(kPlotStoredStatus);
    openVbgfPlot();
}

// The plot screen takes the stored parameters; one already open reads them again.
void FrmElefan1::openVbgfPlot() {
    if (auto* plot = dynamic_cast<FrmVbgfPlot*>(ctx_.openScreen("frmVBGFPlot")))
        plot->ReadDefaults();
}

void FrmElefan1::openCommand() {
    FileDialogOptions o;
    o.title = kOpenTitle;
    o.filter = kLfqFilter;
    o.startFolder = ctx_.programFolder.toStdString();
    o.mustExist = true;
    const auto path = ctx_.dialogs.openFile(o);
    if (!path) return;
    Initialize(*path);
}

void FrmElefan1::reportCommand() {
    Elefan1ReportInfo info;
    info.fileName = txtElefan_[0]->text().toStdString();
    info.speciesName = txtElefan_[1]->text().toStdString();
    info.otherIdentifier = txtElefan_[2]->text().toStdString();
    info.classSize = txtElefan_[3]->text().toStdString();
    info.largestClassSize = txtElefan_[4]->text().toStdString();
    info.unit = txtElefan_[5]->text().toStdString();
    const int tab = tabs_->currentIndex();
    auto addResult = [&](const char* caption, const QString& value) {
        if (!value.isEmpty()) info.results.fields.push_back({caption, value.toStdString()});
    };
    if (tab == kSurfaceTab) {
        info.amplitude = txtC_[0]->text().toStdString();
        info.winterPoint = txtWP_[0]->text().toStdString();
        if (!surface_) return;
        std::vector<std::vector<std::string>> table;
        for (int r = 0; r <= kSurfaceSize; ++r) {
            std::vector<std::string> row;
            for (int c = 0; c <= kSurfaceSize; ++c) {
                const auto* item = grid_->item(r, c);
                row.push_back(item ? item->text().toStdString() : std::string());
            }
            table.push_back(row);
        }
        auto* output = new OutputScreen(ctx_.printer);
        ReportELEFAN1(heatMap_->canvas, *output, ctx_.dialogs, Elefan1ReportMode::SaveSurface, info,
                      table, RenderedPlotSaver());
        output->deleteLater();
        return;
    }
    ChartCanvas empty;
    const ChartCanvas* canvas = &empty;
    if (tab == kSearchTab) {
        info.amplitude = txtC_[4]->text().toStdString();
        info.winterPoint = txtWP_[4]->text().toStdString();
        const int last = spdSearch_->rowCount() - 1;
        for (int c = 0; c < 7 && last >= 0; ++c)
            if (auto* item = spdSearch_->item(last, c)) addResult(kResultLabels[c], item->text());
    } else {
        info.amplitude = txtC_[2]->text().toStdString();
        info.winterPoint = txtWP_[2]->text().toStdString();
        for (int i = 0; i < 7; ++i) addResult(kResultLabels[i], txtElefan_[6 + i]->text());
        canvas = &picELEFAN1_->canvas;
    }
    auto* output = new OutputScreen(ctx_.printer);
    ReportELEFAN1(*canvas, *output, ctx_.dialogs, Elefan1ReportMode::Print, info, {},
                  RenderedPlotSaver());
}

}  // namespace norvo::gui
