#pragma once
// The Response Surface tab of the ELEFAN I screen: scores over ranges of K and Loo, as a table
// in colour bands and a heat map, and a finer heat map on request.
#include <QWidget>
#include <array>
#include <optional>

#include "growth/elefan_defaults.h"
#include "growth/screens/elefan_shared.h"

class QComboBox;
class QLineEdit;
class QSpinBox;
class QTableWidget;

namespace norvo::gui {

class PlotView;

inline constexpr const char* kCmdFineSurface = "&Finer surface";
inline constexpr const char* kSurfaceWarningTitle = "WARNING!";
inline constexpr const char* kSurfaceWarning =
    "Please note that the 'Response Surface' routine cannot determine the parameters to plot. "
    "However, you may encode the parameters manually. Do you want to continue?";

class ElefanSurfacePage : public QWidget {
  public:
    ElefanSurfacePage(ElefanShared& shared, QWidget* parent = nullptr);

    void setDefaults(const ElefanDefaults& d);
    // A new file: its starting lists with the proposed point chosen, and no surface.
    void load(float ss, float sl);
    // "Compute": the surface, after its checks; nothing changes when it is cancelled.
    void compute();
    // A finer n x n heat map over the same ranges.
    void computeFiner(int n);
    // "P&lot": the surface has no parameters to give; the plot screen opens on Yes.
    void plot();
    // "Report": saves the table and the heat map.
    void report();

    // txtK 0..1, txtLoo 0..1, txtC 0..1, txtWP 0..1: From and To.
    QLineEdit* kField(int i) const { return k_[static_cast<size_t>(i)]; }
    QLineEdit* looField(int i) const { return loo_[static_cast<size_t>(i)]; }
    QLineEdit* cField(int i) const { return c_[static_cast<size_t>(i)]; }
    QLineEdit* wpField(int i) const { return wp_[static_cast<size_t>(i)]; }
    QComboBox* ssList() const { return ss_; }
    QComboBox* slList() const { return sl_; }
    QSpinBox* fineSize() const { return fineSize_; }
    QTableWidget* grid() const { return grid_; }
    const ChartCanvas& canvas() const;

  private:
    SurfaceInput input() const;
    void showSurface(const SurfaceResult& s);
    // A change of a range field: the table and the heat map are cleared.
    void clearGrid();

    ElefanShared& shared_;
    std::optional<SurfaceResult> result_;
    bool filling_ = false;

    std::array<QLineEdit*, 2> k_{}, loo_{}, c_{}, wp_{};
    QComboBox* ss_ = nullptr;
    QComboBox* sl_ = nullptr;
    QSpinBox* fineSize_ = nullptr;
    QTableWidget* grid_ = nullptr;
    PlotView* heatMap_ = nullptr;
};

}  // namespace norvo::gui
