#pragma once

#include <QWidget>

/// The calm area beside the logon's fields: the program's mark and name on a colour field. It tells nothing that works,
/// so a screen reader passes it by.
class BrandPanel : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};
