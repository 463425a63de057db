#pragma once
// The growth-increment screens: Gulland and Holt's plot, Munro's method and Fabens' method,
// each thin glue over its core on the shared growth-increment screen.
#include <memory>

#include "growth/screens/growth_increment_screen.h"

namespace norvo {
struct GullandHoltResult;
struct MunroResult;
struct FabensResult;
}  // namespace norvo

namespace norvo::gui {

inline constexpr const char* kMunroTabs[3] = {"&Munro's Plot", "&Gulland && Holt Equivalent",
                                              "&Regression Results from G&&H Plot"};

class FrmGulland : public GrowthIncrementScreen {
  public:
    explicit FrmGulland(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmGulland() override;
    void recompute() override;
    const GullandHoltResult* result() const { return run_.get(); }

  protected:
    void print() override;

  private:
    std::unique_ptr<GullandHoltResult> run_;
};

class FrmMunro : public GrowthIncrementScreen {
  public:
    explicit FrmMunro(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmMunro() override;
    void recompute() override;
    const MunroResult* result() const { return run_.get(); }
    QLabel* regressionText() const { return regression_; }

  protected:
    void print() override;

  private:
    std::unique_ptr<MunroResult> run_;
    QLabel* regression_ = nullptr;
};

class FrmFaben : public GrowthIncrementScreen {
  public:
    explicit FrmFaben(ShellContext& ctx, QWidget* parent = nullptr);
    ~FrmFaben() override;
    void recompute() override;
    const FabensResult* result() const { return run_.get(); }

  protected:
    void print() override;

  private:
    std::unique_ptr<FabensResult> run_;
};

}  // namespace norvo::gui
