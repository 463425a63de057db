#pragma once
// The splash form: the program's name, its version and a notice, shown while the main window
// is made. Its timer fires once and hands over to the main window.
#include <QWidget>
#include <functional>

class QTimer;

namespace norvo::gui {

class FrmSplash : public QWidget {
    Q_OBJECT
  public:
    // `loadMain` makes and shows the main window; it runs when the timer fires, after which the
    // splash form closes.
    FrmSplash(std::function<void()> loadMain, int delayMs = 1500, QWidget* parent = nullptr);

    QTimer* timer() const { return timer_; }

  private:
    void onTimer();

    std::function<void()> loadMain_;
    QTimer* timer_ = nullptr;
};

}  // namespace norvo::gui
