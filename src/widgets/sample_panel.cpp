#include "widgets/sample_panel.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "data/lfq_file.h"
#include "mortality/catch_curve.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

SamplePanel::SamplePanel(DialogService& dialogs, QWidget* parent)
    : QWidget(parent), dialogs_(dialogs) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    list_ = new QListWidget(this);
    list_->setObjectName("lstCatchCurve");
    list_->setSelectionMode(QAbstractItemView::MultiSelection);
    layout->addWidget(list_, 1);

    auto* right = new QVBoxLayout;
    auto* box = new QGroupBox(tr("Transformation"), this);
    auto* boxLayout = new QVBoxLayout(box);
    for (size_t i = 0; i < options_.size(); ++i) {
        options_[i] = new QRadioButton(kTransformCaptions[i], box);
        options_[i]->setToolTip(kTransformHints[i]);
        boxLayout->addWidget(options_[i]);
        connect(options_[i], &QRadioButton::toggled, this, [this](bool on) {
            if (on) Q_EMIT changed();
        });
    }
    options_[0]->setChecked(true);
    right->addWidget(box);
    auto* weighting = new QHBoxLayout;
    temporal_ = new QCheckBox(kTemporalCaption, this);
    help_ = new QPushButton("?", this);
    help_->setFixedWidth(28);
    weighting->addWidget(temporal_);
    weighting->addWidget(help_);
    weighting->addStretch();
    right->addLayout(weighting);
    right->addStretch();
    layout->addLayout(right);

    // `changed` also follows changes the program makes: its handlers are the owner's to guard.
    connect(temporal_, &QCheckBox::toggled, this, &SamplePanel::changed);
    connect(list_, &QListWidget::itemSelectionChanged, this, &SamplePanel::changed);
    connect(
        help_, &QPushButton::clicked, this, Guarded(dialogs_, [this] {
            dialogs_.notify({kCcTemporalHelpText, kCcHelpTitle, Buttons::Ok, Icon::Information});
        }));
}

void SamplePanel::setData(const LfqData& data) {
    const QSignalBlocker block(list_);
    list_->clear();
    for (int s = 0; s < data.noOfSamples; ++s) {
        const auto text = "Sample " + std::to_string(s + 1) + "  (" +
                          FormatSampleDate(data.day[s], data.month[s], data.year[s]) + ")";
        auto* item = new QListWidgetItem(QString::fromStdString(text), list_);
        item->setSelected(true);
    }
    Q_EMIT changed();
}

std::vector<bool> SamplePanel::selected() const {
    std::vector<bool> on(static_cast<size_t>(list_->count()));
    for (int i = 0; i < list_->count(); ++i) on[i] = list_->item(i)->isSelected();
    return on;
}

void SamplePanel::setSelected(int sample, bool on) {
    if (auto* item = list_->item(sample)) item->setSelected(on);
}

CcTransform SamplePanel::transform() const {
    for (size_t i = 0; i < options_.size(); ++i)
        if (options_[i]->isChecked()) return static_cast<CcTransform>(i + 1);
    return CcTransform::Raw;
}

void SamplePanel::setTransform(CcTransform kind) {
    options_[static_cast<size_t>(kind) - 1]->setChecked(true);
}

bool SamplePanel::temporal() const {
    return temporal_->isChecked();
}
void SamplePanel::setTemporal(bool on) {
    temporal_->setChecked(on);
}

}  // namespace norvo::gui
