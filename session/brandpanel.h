#pragma once

#include <QWidget>

/// The quiet area beside the logon's fields, with the program's mark and name on a coloured ground. It contains no
/// information that is needed, so screen readers skip it.
class BrandPanel : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};
