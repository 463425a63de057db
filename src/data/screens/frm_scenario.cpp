#include "data/screens/frm_scenario.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "base/settings_store.h"
#include "data/screens/frm_tip1.h"
#include "data/store_routines.h"
#include "numerics/validators.h"
#include "widgets/command_boundary.h"
#include "widgets/data_grid.h"
#include "widgets/number_box.h"

namespace norvo::gui {

namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

bool HasFile(const std::vector<ScenarioMember>& list, const std::string& path) {
    return std::any_of(list.begin(), list.end(),
                       [&](const ScenarioMember& m) { return m.filename == path; });
}
bool HasName(const std::vector<ScenarioMember>& list, const std::string& name) {
    return std::any_of(list.begin(), list.end(),
                       [&](const ScenarioMember& m) { return m.name == name; });
}

}  // namespace

FrmScenario::FrmScenario(ShellContext& ctx, QWidget* parent) : StockFileEditor(ctx, "SCE", parent) {
    setObjectName("frmScenario");
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    layout->addWidget(tabs_);
    for (size_t i = 0; i < cmd_.size(); ++i) cmd_[i] = new QPushButton(kSceCommands[i], this);

    auto* header = new QWidget;
    auto* form = new QFormLayout(header);
    title_ = new QLineEdit(header);
    remarks_ = new QLineEdit(header);
    form->addRow("Title:", title_);
    form->addRow("Remarks:", remarks_);
    form->addRow(QString(), cmd_[6]);
    tabs_->addTab(header, "&Header");

    auto* members = new QWidget;
    auto* grid = new QGridLayout(members);
    speciesList_ = new QListWidget(members);
    fleetList_ = new QListWidget(members);
    grid->addWidget(new QLabel("Species List", members), 0, 0);
    grid->addWidget(new QLabel("Fleet List", members), 0, 1);
    grid->addWidget(speciesList_, 1, 0);
    grid->addWidget(fleetList_, 1, 1);
    grid->addWidget(cmd_[0], 2, 0);
    grid->addWidget(cmd_[1], 2, 1);
    grid->addWidget(cmd_[2], 3, 0);
    grid->addWidget(cmd_[3], 3, 1);
    tabs_->addTab(members, "Species and &Fleets");

    auto* sel = new QWidget;
    auto* selLayout = new QHBoxLayout(sel);
    auto* selForm = new QFormLayout;
    cmbSpecies_ = new QComboBox(sel);
    cmbFleet_ = new QComboBox(sel);
    selForm->addRow("Species:", cmbSpecies_);
    selForm->addRow("Fleet:", cmbFleet_);
    for (size_t i = 0; i < selection_.size(); ++i) {
        selection_[i] = new QLineEdit(sel);
        selForm->addRow(kSceSelectionCaptions[i], selection_[i]);
    }
    selForm->addRow(QString(), cmd_[4]);
    chkSelection_ = new QCheckBox(kSceUseSelection, sel);
    chkSelection_->setObjectName("chkSelection");
    chkSelection_->setChecked(ctx_.session.thompsonBellSelection);
    selForm->addRow(QString(), chkSelection_);
    selLayout->addLayout(selForm);
    auto* catchLayout = new QVBoxLayout;
    catches_ = new DataGrid(sel);
    catches_->setMaxCols(2);
    catches_->setMaxRows(0);
    catches_->setCornerTitle("Obs");
    catches_->setRowHeadingWidthChars(5);
    for (int c = 0; c < 2; ++c) catches_->setColHeading(c, kSceCatchColumns[c]);
    catches_->setColumnFormat(1, {true, 0.001, 99999999.999, 12});
    catches_->setDisplayDecimals(3);
    catchLayout->addWidget(catches_, 1);
    catchLayout->addWidget(cmd_[5]);
    selLayout->addLayout(catchLayout, 1);
    tabs_->addTab(sel, "Selection and &Catches");

    runTip = [](FrmTip2& tip) { tip.exec(); };
    auto& d = ctx_.dialogs;
    auto load = [this](const char* filter) {
        return ctx_.dialogs.openFile({kSceLoadTitle, filter, {}, {}, {}, true});
    };
    connect(cmd_[0], &QPushButton::clicked, this, Guarded(d, [this, load] {
                if (const auto p = load(kSceSpeciesFilter)) SaveSpecies(*p);
            }));
    connect(cmd_[1], &QPushButton::clicked, this, Guarded(d, [this, load] {
                if (const auto p = load(kSceFleetFilter)) SaveFleet(*p);
            }));
    connect(cmd_[2], &QPushButton::clicked, this, Guarded(d, [this] { RemoveSpecies(); }));
    connect(cmd_[3], &QPushButton::clicked, this, Guarded(d, [this] { RemoveFleet(); }));
    connect(cmd_[4], &QPushButton::clicked, this, Guarded(d, [this] { SaveSelection(); }));
    connect(cmd_[5], &QPushButton::clicked, this, Guarded(d, [this] { SaveCatches(); }));
    connect(cmd_[6], &QPushButton::clicked, this, Guarded(d, [this] { SaveFile(); }));
    for (auto* combo : {cmbSpecies_, cmbFleet_})
        connect(combo, &QComboBox::currentIndexChanged, this,
                Guarded(d, [this] { PickCombination(); }));
    for (auto* box : selection_)
        connect(box, &QLineEdit::textEdited, this, Guarded(d, [this] { selectionEdited(); }));
    for (auto* box : {title_, remarks_})
        connect(box, &QLineEdit::textEdited, this, [this] { markChanged(); });
    connect(chkSelection_, &QCheckBox::toggled, this,
            [this](bool on) { ctx_.session.thompsonBellSelection = on; });
}

void FrmScenario::OpenFile() {
    const auto read = ReadScenarioFile(filePath().toStdString());
    if (!read) {
        failRead();
        return;
    }
    title_->setText(Q(read->title));
    remarks_->setText(Q(read->remarks));
    species_ = read->species;
    fleets_ = read->fleets;
    showMembers();
    saved_ = true;
}

void FrmScenario::SaveFile() {
    SaveScenarioHeader(filePath().toStdString(), title_->text().toStdString(),
                       remarks_->text().toStdString());
    if (title_->text().isEmpty()) title_->setText(kNoTitle);
    if (remarks_->text().isEmpty()) remarks_->setText(kNoRemarks);
    saved_ = true;
}

void FrmScenario::showMembers() {
    loading_ = true;
    const std::string s = pickedSpecies(), f = pickedFleet();
    speciesList_->clear();
    fleetList_->clear();
    cmbSpecies_->clear();
    cmbFleet_->clear();
    for (const auto& m : species_) {
        speciesList_->addItem(Q(MemberLabel(m)));
        cmbSpecies_->addItem(Q(MemberLabel(m)));
    }
    for (const auto& m : fleets_) {
        fleetList_->addItem(Q(MemberLabel(m)));
        cmbFleet_->addItem(Q(MemberLabel(m)));
    }
    cmbSpecies_->setCurrentIndex(-1);
    cmbFleet_->setCurrentIndex(-1);
    for (int i = 0; i < cmbSpecies_->count(); ++i)
        if (species_[i].name == s) cmbSpecies_->setCurrentIndex(i);
    for (int i = 0; i < cmbFleet_->count(); ++i)
        if (fleets_[i].name == f) cmbFleet_->setCurrentIndex(i);
    loading_ = false;
    PickCombination();
}

void FrmScenario::saveMembers() {
    SaveScenarioMembers(filePath().toStdString(), species_, fleets_);
    showMembers();
}

void FrmScenario::SaveSpecies(const std::string& path) {
    if (HasFile(species_, path)) {
        ctx_.dialogs.notify({kSceAlreadySelected, kSceInvalidAction, Buttons::Ok, Icon::Warning});
        return;
    }
    const auto read = ReadSpeciesFile(path);
    if (!read) {
        ctx_.dialogs.notify(read.error().notice);
        return;
    }
    if (HasName(species_, read->header.speciesName)) {
        ctx_.dialogs.notify({kSceSameName, kSceInvalidAction, Buttons::Ok, Icon::Warning});
        return;
    }
    species_.push_back({read->header.speciesName, path});
    saveMembers();
}

void FrmScenario::SaveFleet(const std::string& path) {
    if (HasFile(fleets_, path)) {
        ctx_.dialogs.notify({kSceAlreadySelected, kSceInvalidAction, Buttons::Ok, Icon::Warning});
        return;
    }
    const auto read = ReadFleetFile(path);
    if (!read) {
        ctx_.dialogs.notify(read.error().notice);
        return;
    }
    if (HasName(fleets_, read->fleetName)) {
        ctx_.dialogs.notify({kSceSameName, kSceInvalidAction, Buttons::Ok, Icon::Warning});
        return;
    }
    fleets_.push_back({read->fleetName, path});
    saveMembers();
}

void FrmScenario::RemoveSpecies() {
    const int row = speciesList_->currentRow();
    if (row < 0 || row >= static_cast<int>(species_.size())) return;
    const std::string name = species_[static_cast<size_t>(row)].name;
    if (!ctx_.dialogs.askYesNo(RemoveMemberQuestion(name), kRemoveMemberTitle)) return;
    RemoveScenarioSpecies(filePath().toStdString(), name);
    species_.erase(species_.begin() + row);
    showMembers();
}

void FrmScenario::RemoveFleet() {
    const int row = fleetList_->currentRow();
    if (row < 0 || row >= static_cast<int>(fleets_.size())) return;
    const std::string name = fleets_[static_cast<size_t>(row)].name;
    if (!ctx_.dialogs.askYesNo(RemoveMemberQuestion(name), kRemoveMemberTitle)) return;
    RemoveScenarioFleet(filePath().toStdString(), name);
    fleets_.erase(fleets_.begin() + row);
    showMembers();
}

bool FrmScenario::combinationPicked() const {
    return cmbSpecies_->currentIndex() >= 0 && cmbFleet_->currentIndex() >= 0;
}

std::string FrmScenario::pickedSpecies() const {
    return MemberKey(cmbSpecies_->currentText().toStdString());
}

std::string FrmScenario::pickedFleet() const {
    return MemberKey(cmbFleet_->currentText().toStdString());
}

void FrmScenario::PickCombination() {
    if (loading_) return;
    for (auto* box : selection_) box->clear();
    catches_->setMaxRows(0);
    if (!combinationPicked()) return;
    const std::string path = filePath().toStdString();
    if (const auto sel = ReadSelection(path, pickedFleet(), pickedSpecies())) {
        const double v[] = {sel->l50, sel->l75, sel->r75, sel->r50};
        for (int i = 0; i < 4; ++i) SetBoxNumber(selection_[i], v[i], "0.00");
    }
    // The midlengths come from the species file; the catches recorded so far fill them in.
    const auto& member = species_[static_cast<size_t>(cmbSpecies_->currentIndex())];
    const auto read = ReadSpeciesFile(member.filename);
    if (!read) {
        ctx_.dialogs.notify(read.error().notice);
        return;
    }
    const auto stored = ReadCatches(path, pickedFleet(), pickedSpecies());
    catches_->setMaxRows(static_cast<int>(read->classes.size()));
    for (size_t r = 0; r < read->classes.size(); ++r) {
        const int row = static_cast<int>(r);
        const double mid = read->classes[r].lengthClass;
        catches_->setRowHeading(row, QString::number(row + 1));
        catches_->setValue(row, 0, mid);
        for (const CatchRow& c : stored)
            if (c.lengthGroup == mid) catches_->setValue(row, 1, c.catchIndex);
    }
}

void FrmScenario::selectionEdited() {
    if (combinationPicked()) return;
    ctx_.dialogs.notify({kScePickFirst, kSceInvalidAction, Buttons::Ok, Icon::Warning});
    for (auto* box : selection_) box->clear();
}

void FrmScenario::SaveSelection() {
    if (!combinationPicked()) {
        ctx_.dialogs.notify({kScePickFirst, kSceInvalidAction, Buttons::Ok, Icon::Warning});
        return;
    }
    std::array<double, 4> v{};
    for (int i = 0; i < 4; ++i) {
        const auto x = BoxNumber(selection_[i]);
        if (!x || selection_[i]->text().trimmed().isEmpty()) {
            ctx_.dialogs.inform(kInvalidNumber, kValidatorTitle, Icon::Warning);
            selection_[i]->setFocus();
            return;
        }
        v[i] = *x;
    }
    const Outcome o = norvo::SaveSelection(
        filePath().toStdString(), {pickedFleet(), pickedSpecies(), v[0], v[1], v[2], v[3]});
    if (!ShowNotices(o, ctx_.dialogs)) return;
    ctx_.dialogs.notify(
        {kSceSelectionSaved, kSceSelectionSavedTitle, Buttons::Ok, Icon::Information});
}

void FrmScenario::SaveCatches() {
    if (!combinationPicked()) {
        ctx_.dialogs.notify({kScePickFirst, kSceInvalidAction, Buttons::Ok, Icon::Warning});
        return;
    }
    std::vector<CatchRow> rows;
    for (int r = 0; r < catches_->maxRows(); ++r)
        if (const auto c = catches_->value(r, 1))
            rows.push_back({catches_->value(r, 0).value_or(0), *c});
    norvo::SaveCatches(filePath().toStdString(), pickedFleet(), pickedSpecies(), rows);
    ctx_.dialogs.notify({kSceCatchesSaved, kSceCatchesSavedTitle, Buttons::Ok, Icon::Information});
    if (FrmTip2::wanted(ctx_.settings)) {
        FrmTip2 tip(ctx_.settings, this);
        runTip(tip);
    }
}

std::vector<QStringList> FrmScenario::outputLines() const {
    std::vector<QStringList> lines;
    lines.push_back({"Scenarion Parameters"});
    lines.push_back({"Date generated: " + QDate::currentDate().toString("dd/MM/yyyy")});
    lines.push_back({});
    lines.push_back({"Title:", title_->text()});
    lines.push_back({"Remarks:", remarks_->text()});
    lines.push_back({});
    lines.push_back({"Species List"});
    for (const auto& m : species_) lines.push_back({Q(m.name), Q(m.filename)});
    lines.push_back({"Fleet List"});
    for (const auto& m : fleets_) lines.push_back({Q(m.name), Q(m.filename)});
    const std::string path = filePath().toStdString();
    lines.push_back({});
    lines.push_back({"Selection"});
    lines.push_back({"Fleet", "Species", "L50", "L75", "R75", "R50"});
    for (const auto& f : fleets_)
        for (const auto& s : species_)
            if (const auto sel = ReadSelection(path, f.name, s.name))
                lines.push_back({Q(f.name), Q(s.name), NumberText(sel->l50, "0.00"),
                                 NumberText(sel->l75, "0.00"), NumberText(sel->r75, "0.00"),
                                 NumberText(sel->r50, "0.00")});
    lines.push_back({});
    lines.push_back({"Catches"});
    lines.push_back({"Fleet", "Species", "Midlength", "Catch Index"});
    for (const auto& f : fleets_)
        for (const auto& s : species_)
            for (const CatchRow& c : ReadCatches(path, f.name, s.name))
                lines.push_back({Q(f.name), Q(s.name), NumberText(c.lengthGroup, "0.00"),
                                 NumberText(c.catchIndex, "0.000")});
    return lines;
}

}  // namespace norvo::gui
