#pragma once

#include <QDialog>

#include "platform/printing/printdocument.h"

class PrintPreview;
class QLabel;
class QPushButton;

/// Shows a document as it will be on paper. The user can print it or save it as a PDF from here. The form stays open
/// after both, so that a failure loses nothing and the same document can be printed and saved.
class frmpreview : public QDialog {
    Q_OBJECT

  public:
    explicit frmpreview(const printing::Document& document, QWidget* parent = nullptr);

    /// Whether the document has gone to a printer or into a file.
    [[nodiscard]] bool HasPrinted() const { return hasPrinted_; }

    PrintPreview* vp = nullptr;
    QLabel* lblstatus = nullptr;
    QPushButton* cmdsave = nullptr;
    QPushButton* cmdprint = nullptr;
    QPushButton* cmdclose = nullptr;

  private:
    void buildForm();
    void cmdsave_Click();
    void cmdprint_Click();
    void tellPrinted(const QString& text);

    bool hasPrinted_ = false;
};
