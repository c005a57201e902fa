#pragma once

#include <QDialog>

#include "platform/printing/printdocument.h"

class PrintPreview;
class QLabel;
class QPushButton;

/// Shows a document as it will be on paper; from here it is printed or saved as a PDF. The form stays after both, so
/// that a failure loses nothing and one document can go both ways.
class frmpreview : public QDialog {
    Q_OBJECT

  public:
    explicit frmpreview(const printing::Document& document, QWidget* parent = nullptr);

    PrintPreview* vp = nullptr;
    QLabel* lblstatus = nullptr;
    QPushButton* cmdsave = nullptr;
    QPushButton* cmdprint = nullptr;
    QPushButton* cmdclose = nullptr;

  private:
    void buildForm();
    void cmdsave_Click();
};
