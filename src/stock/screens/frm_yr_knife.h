#pragma once
// Relative yield per recruit under knife-edge selection: the surface over E and Lc/Loo
// (frmYRKnife) and the two curves over E at one Lc/Loo with E-10, E-50 and E-max
// (frm2DYRKnife), opened from the surface with its M/K.
#include "stock/screens/ypr_2d_screen.h"
#include "stock/screens/ypr_surface_screen.h"

namespace norvo::gui {

class FrmYRKnife : public YprSurfaceScreen {
  public:
    explicit FrmYRKnife(ShellContext& ctx, QWidget* parent = nullptr);

  protected:
    std::optional<std::vector<SurfaceRow>> surfaceRows(bool biomass) override;
    void open2D() override;
    std::string reportTitle() const override;
};

class Frm2DYRKnife : public Ypr2DScreen {
  public:
    explicit Frm2DYRKnife(ShellContext& ctx, QWidget* parent = nullptr);
    // Every opening from the surface: its M/K and top of the Y' axis, Lc/Loo back to 0.05.
    void activate(float mk, float yPrimeMax);

  protected:
    std::optional<Drawn> analyse() override;
    float topAfterChange() override;
};

}  // namespace norvo::gui
