#pragma once
// The Response Surface tab of the Shepherd screen: scores over ranges of K and Loo, as the
// table in colour bands and a heat map.
#include <QWidget>
#include <array>
#include <optional>

#include "growth/screens/shepherd_shared.h"
#include "growth/shepherd.h"

class QLineEdit;
class QTableWidget;

namespace norvo::gui {

class PlotView;

class ShepherdSurfacePage : public QWidget {
  public:
    ShepherdSurfacePage(ShepherdShared& shared, QWidget* parent = nullptr);

    void setDefaults(const ShepherdDefaults& d);
    // A new file: no surface.
    void load();
    // "Compute": the surface after its checks; nothing changes when it is cancelled.
    void compute();
    // "P&lot": the surface has no parameters to give; the plot screen opens on Yes.
    void plot();
    // "Report": the page, then the table and the heat map, each to a file.
    void report();

    // txtK 0..1 and txtLoo 0..1: From and To.
    QLineEdit* kField(int i) const { return k_[static_cast<size_t>(i)]; }
    QLineEdit* looField(int i) const { return loo_[static_cast<size_t>(i)]; }
    QTableWidget* grid() const { return grid_; }
    const ChartCanvas& canvas() const;
    const std::optional<SurfaceResult>& result() const { return result_; }

  private:
    void clearGrid();

    ShepherdShared& shared_;
    std::optional<SurfaceResult> result_;
    bool filling_ = false;

    std::array<QLineEdit*, 2> k_{}, loo_{};
    QTableWidget* grid_ = nullptr;
    PlotView* heatMap_ = nullptr;
};

}  // namespace norvo::gui
