#include "mortality/screens/frm_munro2.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "widgets/calc_form.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

FrmMunro2::FrmMunro2(ShellContext& ctx, QWidget* parent) : QWidget(parent) {
    setObjectName("frmMunro2");
    setWindowTitle(kMunro2Title);
    tabs = new QTabWidget(this);
    tabs->setObjectName("tabMunro2");
    for (const char* caption : kMunro2Tabs) tabs->addTab(new QWidget(tabs), caption);

    auto* proceed = MakeButton(kMunro2Proceed, "cmdProceed", this);
    auto* close = MakeButton(kCalcClose, "cmdClose", this);
    connect(proceed, &QPushButton::clicked, this,
            Guarded(ctx.dialogs, [this] { CloseScreen(this); }));
    connect(close, &QPushButton::clicked, this,
            Guarded(ctx.dialogs, [this] { CloseScreen(this); }));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(proceed);
    buttons->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addLayout(buttons);

    ctx.dialogs.notify({kNotAvailableMessage, kNotAvailableTitle, Buttons::Ok, Icon::None});
}

}  // namespace norvo::gui
