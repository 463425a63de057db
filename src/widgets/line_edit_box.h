#pragma once
// Lets the validators read and write a QLineEdit.
#include <QLineEdit>
#include <string>

#include "numerics/validators.h"

namespace norvo::gui {

class LineEditBox : public TextBox {
  public:
    explicit LineEditBox(QLineEdit* edit) : edit_(edit) {}
    std::string text() const override { return edit_->text().toStdString(); }
    void setText(const std::string& text) override { edit_->setText(QString::fromStdString(text)); }
    void setFocus() override { edit_->setFocus(); }

  private:
    QLineEdit* edit_;
};

}  // namespace norvo::gui
