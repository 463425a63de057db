#include "data/screens/frm_lfq_sub.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include "base/checked.h"
#include "data/data_store.h"
#include "data/lfq_file.h"
#include "widgets/command_boundary.h"
#include "widgets/number_box.h"

namespace norvo::gui {

namespace {

// An empty or unreadable numeric box stores 0.
float StoredNumber(const QLineEdit* box) {
    return R4(BoxNumber(box).value_or(0.0));
}

QString FieldText(const Records& rs, const char* field) {
    const FieldValue v = rs.getField(field);
    if (IsNull(v)) return {};
    if (std::holds_alternative<double>(v)) {
        return SingleText(static_cast<float>(std::get<double>(v)));
    }
    return QString::fromStdString(AsText(v));
}

}  // namespace

FrmLfqSub::FrmLfqSub(const std::string& path, int sampleNo, DialogService& dialogs,
                     const std::string& numericKeys, QWidget* parent)
    : QDialog(parent),
      path_(path),
      sampleNo_(sampleNo),
      dialogs_(dialogs),
      numericKeys_(QString::fromStdString(numericKeys)) {
    setObjectName("frmLFQSub");
    setWindowTitle(QString("Sample Header: Sample No. %1").arg(sampleNo));
    setModal(true);

    cmbDay_ = addCombo("cmbDay");
    for (int d = 1; d <= 31; ++d) cmbDay_->addItem(QString::number(d));
    cmbMonth_ = addCombo("cmbMonth");
    for (int m = 1; m <= 12; ++m) cmbMonth_->addItem(QString::number(m));
    txtYear_ = addLine("txtYear");
    txtYear_->setMaxLength(4);
    txtYear_->setValidator(
        new QRegularExpressionValidator(QRegularExpression("[0-9]{0,4}"), txtYear_));
    cmbSex_ = addCombo("cmbSex");
    for (const char* s : kSexList) cmbSex_->addItem(s);
    txtTime_ = addLine("txtTime");
    txtArea_ = addLine("txtArea");
    txtLatitude_ = addLine("txtLatitude");
    txtLongitude_ = addLine("txtLongitude");
    txtDepth_ = addNumber("txtDepth");
    cmbBottom_ = addCombo("cmbBottom");
    for (const char* s : kBottomList) cmbBottom_->addItem(s);
    txtLwA_ = addNumber("txtLWa");
    txtLwB_ = addNumber("txtLWb");
    txtCatchType_ = addLine("txtCatchType");
    txtWtSample_ = addNumber("txtWtSample");
    txtTwtSpecies_ = addNumber("txtTWtSpecies");
    txtTwtCatch_ = addNumber("txtTWtCatch");
    txtEffort_ = addNumber("txtEffort");
    txtVessel_ = addLine("txtVessel");
    txtGearType_ = addLine("txtGearType");
    txtMeshSize_ = addNumber("txtMeshSize");
    txtGearChar_ = addLine("txtGearChar");
    txtRemarks_ = addLine("txtRemarks");
    for (QComboBox* c : {cmbDay_, cmbMonth_, cmbSex_, cmbBottom_}) c->setCurrentIndex(-1);

    // Date row.
    auto* dateRow = new QHBoxLayout;
    dateRow->addWidget(new QLabel("Day", this));
    dateRow->addWidget(cmbDay_);
    dateRow->addWidget(new QLabel("Month", this));
    dateRow->addWidget(cmbMonth_);
    dateRow->addWidget(new QLabel("Year", this));
    dateRow->addWidget(txtYear_);
    dateRow->addStretch();
    auto* dateBox = new QGroupBox("Sampling date", this);
    dateBox->setLayout(dateRow);

    auto* left = new QFormLayout;
    left->addRow("Sex:", cmbSex_);
    left->addRow("Sampling time:", txtTime_);
    left->addRow("Area:", txtArea_);
    left->addRow("Latitude:", txtLatitude_);
    left->addRow("Longitude:", txtLongitude_);
    left->addRow("Depth:", txtDepth_);
    left->addRow("Bottom type:", cmbBottom_);
    left->addRow("Catch type:", txtCatchType_);
    left->addRow("Remarks:", txtRemarks_);

    auto* lwNote = new QLabel(kLengthWeightNote, this);
    lwNote->setWordWrap(true);
    auto* right = new QFormLayout;
    right->addRow(lwNote);
    right->addRow("a:", txtLwA_);
    right->addRow("b:", txtLwB_);
    right->addRow("Weight of sample:", txtWtSample_);
    right->addRow("Total weight of species:", txtTwtSpecies_);
    right->addRow("Total weight of catch:", txtTwtCatch_);
    right->addRow("Effort:", txtEffort_);
    right->addRow("Vessel:", txtVessel_);
    right->addRow("Gear type:", txtGearType_);
    right->addRow("Mesh size:", txtMeshSize_);
    right->addRow("Gear characteristics:", txtGearChar_);

    auto* note = new QLabel(kSubheaderNote, this);
    note->setObjectName("lblNote");
    note->setWordWrap(true);

    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 1);
    columns->addSpacing(12);
    columns->addLayout(right, 1);

    auto* okButton = new QPushButton("&OK", this);
    okButton->setObjectName("cmdLFQ_0");
    auto* cancelButton = new QPushButton("&Cancel", this);
    cancelButton->setObjectName("cmdLFQ_1");
    okButton->setAutoDefault(false);
    cancelButton->setAutoDefault(false);
    connect(okButton, &QPushButton::clicked, this, Guarded(dialogs_, [this] { ok(); }));
    connect(cancelButton, &QPushButton::clicked, this, Guarded(dialogs_, [this] { cancel(); }));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(okButton);
    buttons->addWidget(cancelButton);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(dateBox);
    layout->addWidget(note);
    layout->addLayout(columns);
    layout->addLayout(buttons);

    order_ = {cmbDay_,       cmbMonth_,     txtYear_,       cmbSex_,      txtTime_,   txtArea_,
              txtLatitude_,  txtLongitude_, txtDepth_,      cmbBottom_,   txtLwA_,    txtLwB_,
              txtCatchType_, txtWtSample_,  txtTwtSpecies_, txtTwtCatch_, txtEffort_, txtVessel_,
              txtGearType_,  txtMeshSize_,  txtGearChar_,   txtRemarks_};
    for (int i = 1; i < order_.size(); ++i) setTabOrder(order_[i - 1], order_[i]);
    ReadData();
}

QLineEdit* FrmLfqSub::addLine(const char* name) {
    auto* e = new QLineEdit(this);
    e->setObjectName(name);
    e->installEventFilter(this);
    return e;
}

QLineEdit* FrmLfqSub::addNumber(const char* name) {
    QLineEdit* e = addLine(name);
    // Key filter: digits and one decimal separator.
    const QString sep = QRegularExpression::escape(numericKeys_.right(1));
    e->setValidator(
        new QRegularExpressionValidator(QRegularExpression("[0-9]*" + sep + "?[0-9]*"), e));
    return e;
}

QComboBox* FrmLfqSub::addCombo(const char* name) {
    auto* c = new QComboBox(this);
    c->setObjectName(name);
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    c->installEventFilter(this);
    if (c->lineEdit()) c->lineEdit()->installEventFilter(this);
    return c;
}

void FrmLfqSub::ReadData() {
    try {
        DataStore store = DataStore::open(path_);
        Records rs = store.openRecords(kTableSampleLf);
        rs.findFirst("[SampleNo]= " + std::to_string(sampleNo_));
        if (rs.noMatch()) return;
        cmbDay_->setCurrentText(FieldText(rs, "Sampling_Day"));
        cmbMonth_->setCurrentText(FieldText(rs, "Sampling_Month"));
        txtYear_->setText(FieldText(rs, "Sampling_Year"));
        cmbSex_->setCurrentText(FieldText(rs, "Sex"));
        txtTime_->setText(FieldText(rs, "Sampling_Time"));
        txtArea_->setText(FieldText(rs, "Area"));
        txtLatitude_->setText(FieldText(rs, "Latitude"));
        txtLongitude_->setText(FieldText(rs, "Longitude"));
        txtDepth_->setText(FieldText(rs, "Depth"));
        cmbBottom_->setCurrentText(FieldText(rs, "Bottom_Type"));
        txtLwA_->setText(FieldText(rs, "LW_a"));
        txtLwB_->setText(FieldText(rs, "LW_b"));
        txtCatchType_->setText(FieldText(rs, "Catch_Type"));
        txtWtSample_->setText(FieldText(rs, "Wt_Sample"));
        txtTwtSpecies_->setText(FieldText(rs, "TWt_Species"));
        txtTwtCatch_->setText(FieldText(rs, "TWt_Catch"));
        txtEffort_->setText(FieldText(rs, "Effort"));
        txtVessel_->setText(FieldText(rs, "Vessel"));
        txtGearType_->setText(FieldText(rs, "Gear_Type"));
        txtMeshSize_->setText(FieldText(rs, "Mesh_Size"));
        txtGearChar_->setText(FieldText(rs, "Gear_Characteristics"));
        txtRemarks_->setText(FieldText(rs, "Remarks"));
    } catch (const StoreError&) {
        // An unreadable file leaves the boxes empty; the editor reports it on save.
    }
}

LfqSample FrmLfqSub::sampleFromBoxes() const {
    LfqSample s;
    s.sampleNo = static_cast<int16_t>(sampleNo_);
    s.samplingDay = static_cast<int16_t>(cmbDay_->currentText().trimmed().toInt());
    s.samplingMonth = static_cast<int16_t>(cmbMonth_->currentText().trimmed().toInt());
    s.samplingYear = txtYear_->text().trimmed().toInt();
    s.sex = cmbSex_->currentText().toStdString();
    s.samplingTime = txtTime_->text().toStdString();
    s.area = txtArea_->text().toStdString();
    s.latitude = txtLatitude_->text().toStdString();
    s.longitude = txtLongitude_->text().toStdString();
    s.depth = StoredNumber(txtDepth_);
    s.bottomType = cmbBottom_->currentText().toStdString();
    s.lwA = StoredNumber(txtLwA_);
    s.lwB = StoredNumber(txtLwB_);
    s.catchType = txtCatchType_->text().toStdString();
    s.wtSample = StoredNumber(txtWtSample_);
    s.twtSpecies = StoredNumber(txtTwtSpecies_);
    s.twtCatch = StoredNumber(txtTwtCatch_);
    s.effort = StoredNumber(txtEffort_);
    s.vessel = txtVessel_->text().toStdString();
    s.gearType = txtGearType_->text().toStdString();
    s.meshSize = StoredNumber(txtMeshSize_);
    s.gearCharacteristics = txtGearChar_->text().toStdString();
    s.remarks = txtRemarks_->text().toStdString();
    return s;
}

void FrmLfqSub::SaveData() {
    WriteSampleHeader(path_, sampleFromBoxes());
}

void FrmLfqSub::ok() {
    if (!IsValidDateParts(cmbDay_->currentText().toStdString(),
                          cmbMonth_->currentText().toStdString(), txtYear_->text().toStdString())) {
        dialogs_.notify({kInvalidDateText, kInvalidDataTitle, Buttons::Ok, Icon::Warning});
        cmbDay_->setFocus();
        return;
    }
    SaveData();
    day_ = cmbDay_->currentText().trimmed().toInt();
    month_ = cmbMonth_->currentText().trimmed().toInt();
    year_ = txtYear_->text().trimmed().toInt();
    accept();
}

void FrmLfqSub::cancel() {
    day_ = 0;
    reject();
}

bool FrmLfqSub::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            // Enter moves to the next box in index order.
            QWidget* w = qobject_cast<QWidget*>(watched);
            if (auto* combo = qobject_cast<QComboBox*>(w ? w->parentWidget() : nullptr);
                combo && qobject_cast<QLineEdit*>(w)) {
                w = combo;
            }
            const int i = order_.indexOf(w);
            if (i >= 0) {
                order_[(i + 1) % order_.size()]->setFocus();
                return true;
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace norvo::gui
