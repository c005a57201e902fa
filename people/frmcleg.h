#pragma once

#include <QDialog>

/// The color legend: what each colour of the calendar stands for, each painted as the calendar paints it.
class frmcleg : public QDialog {
    Q_OBJECT

  public:
    explicit frmcleg(QWidget* parent = nullptr);
};
