#include "chart/point_selection.h"

#include "chart/chart_plot.h"

namespace norvo {

int HitTest(const std::vector<UserPoint>& points, double x, double y) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto& p = points[i];
        if (p.x - kHitHalfWidth < x && x < p.x + kHitHalfWidth && p.y - kHitHalfHeight < y &&
            y < p.y + kHitHalfHeight) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void NotifySelectOnOtherPlot(DialogService& dialogs, const std::string& plotName) {
    dialogs.notify({"Please select and de-select points from the " + plotName + ".",
                    kInvalidActionTitle, Buttons::Ok, Icon::Information});
}

void PointSelection::setPoints(std::vector<UserPoint> points, std::vector<int> flags) {
    points_ = std::move(points);
    flags_ = std::move(flags);
    flags_.resize(points_.size(), 1);
    if (active_ >= static_cast<int>(points_.size())) active_ = -1;
}

bool PointSelection::mouseMove(double x, double y) {
    active_ = HitTest(points_, x, y);
    return active_ >= 0;
}

bool PointSelection::click() {
    if (active_ < 0) return false;
    flags_[active_] = flags_[active_] == 0 ? 1 : 0;
    return true;
}

std::string PointSelection::readOut(const std::vector<std::string>& texts) const {
    if (active_ < 0 || active_ >= static_cast<int>(texts.size())) return kNotAvailable;
    return texts[active_];
}

RangeSelection::Outcome RangeSelection::click(int index, float x, DialogService& dialogs) {
    if (startIndex_ < 0 || endIndex_ >= 0) {
        startIndex_ = index;
        startX_ = x;
        endIndex_ = -1;
        return Outcome::StartSet;
    }
    if (x <= startX_) {
        dialogs.notify({kRangeOrderMessage, kRangeOrderTitle, Buttons::Ok, Icon::Information});
        return Outcome::Refused;
    }
    endIndex_ = index;
    endX_ = x;
    return Outcome::EndSet;
}

void RangeSelection::reset() {
    startIndex_ = endIndex_ = -1;
}

std::vector<float> RangeSelection::result() const {
    if (!complete()) return {kChartNoValue};
    return {startX_, endX_};
}

}  // namespace norvo
