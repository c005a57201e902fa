#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

/// Shows the alert text of a patient, which scrolls when it is too long for the screen. The caller puts the text into
/// lblalert.
class frmAlert : public QDialog {
    Q_OBJECT

  public:
    explicit frmAlert(QWidget* parent = nullptr);

    QLabel* lblalert = nullptr;
    QPushButton* cmdOk = nullptr;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void fitToText();
};
