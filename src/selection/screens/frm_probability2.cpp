#include "selection/screens/frm_probability2.h"

#include <QPushButton>

#include "app/active_file.h"
#include "base/settings_store.h"
#include "data/sample_readers.h"
#include "selection/selection.h"
#include "widgets/command_boundary.h"

namespace norvo::gui {

FrmProbability2::FrmProbability2(ShellContext& ctx, QWidget* parent) : FrmProbability(ctx, parent) {
    setObjectName("frmProbability2");
    setWindowFlags(Qt::Widget);
    setReportTitle(kSelTrawlTitle);
    setWindowTitle(kSelTrawlTitle);
    command(5)->show();
    connect(command(5), &QPushButton::clicked, this, Guarded(ctx_.dialogs, [this] {
                const auto path =
                    ctx_.dialogs.openFile({kProbOpenTitle, kProbPrbFilter, {}, "prb", {}, true});
                if (path) openFile(*path);
            }));
    const ActiveFileSet active(ctx_.settings);
    if (active.serves("PRB")) openFile(active.path());
}

bool FrmProbability2::openFile(const std::string& path) {
    const auto prb = ctx_.session.readPrb(path, ctx_.dialogs);
    if (!prb || prb->length.empty()) return false;
    LfqData header = prb->header;
    header.path = path;
    setData(SelectionInputFromPrb(prb->length, prb->probability), header);
    setWindowTitle(QString::fromStdString(std::string(kSelTrawlTitle) + " [" + path + "]"));
    return true;
}

}  // namespace norvo::gui
