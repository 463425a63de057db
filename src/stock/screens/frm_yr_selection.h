#pragma once
// Relative yield per recruit with a selection ogive: the surface over E and L50/Loo with the
// selection table loaded from a probabilities file (frmYRSelection), and the two curves over E
// at one L50/Loo (frm2DYRSelection), opened from the surface with its table, M/K and Loo.
#include <string>
#include <vector>

#include "stock/relative_ypr_ogive.h"
#include "stock/screens/ypr_2d_screen.h"
#include "stock/screens/ypr_surface_screen.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace norvo::gui {

class DataGrid;

inline constexpr const char* kYrLoadCommand = "Load Selection File";
inline constexpr const char* kYrOpenTitle = "Open...";
inline constexpr const char* kYrPrbFilter = "Probabilities (*.prb)|*.prb|All Files (*.*)|*.*";

class FrmYRSelection : public YprSurfaceScreen {
  public:
    explicit FrmYRSelection(ShellContext& ctx, QWidget* parent = nullptr);

    // Reads a probabilities file into the table and proposes L-50, L-75 and Loo.
    bool loadSelectionFile(const std::string& path);
    QLineEdit* looBox() const { return loo_; }
    QLineEdit* selectionBox(int i) const { return sel_[size_t(i)]; }  // L-50, L-75
    DataGrid* table() const { return table_; }
    QPushButton* commandLoad() const { return cmdLoad_; }

  protected:
    std::optional<std::vector<SurfaceRow>> surfaceRows(bool biomass) override;
    void open2D() override;
    std::string reportTitle() const override;
    bool inputsReady() const override;

  private:
    // The table's rows up to the first blank one, and the classes they define.
    void tableRows(std::vector<float>& length, std::vector<float>& prob) const;
    std::optional<OgiveClasses> classes();

    QLineEdit* loo_ = nullptr;
    std::array<QLineEdit*, 2> sel_{};
    QLabel* species_ = nullptr;
    DataGrid* table_ = nullptr;
    QPushButton* cmdLoad_ = nullptr;
};

class Frm2DYRSelection : public Ypr2DScreen {
  public:
    explicit Frm2DYRSelection(ShellContext& ctx, QWidget* parent = nullptr);
    // Every opening from the surface: L50/Loo back to 0.05 with its table, M/K and Loo.
    void activate(const OgiveClasses& classes, float mk, float loo);
    QLineEdit* looBox() const { return looBox_; }
    void leaveLoo();

  protected:
    std::optional<Drawn> analyse() override;
    float topAfterChange() override;

  private:
    OgiveClasses classes_;
    float loo_ = 0;
    QLineEdit* looBox_ = nullptr;
};

}  // namespace norvo::gui
