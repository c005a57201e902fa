#pragma once

#include <QDialog>

/// The colour legend: the meaning of each colour of the calendar, painted as the calendar paints it.
class frmcleg : public QDialog {
    Q_OBJECT

  public:
    explicit frmcleg(QWidget* parent = nullptr);
};
