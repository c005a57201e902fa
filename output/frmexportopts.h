#pragma once

#include <array>
#include <QPointer>
#include <vector>

#include "output/exportrows.h"
#include "output/patientnaming.h"
#include "session/editordialog.h"

class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class TextField;
class ctDEdit;

/// Exports appointments of the session's provider into a calendar file.
///
/// The user chooses which appointments, where the file is to be, its format, and how it names patients. How patients
/// are named is kept for the user, apart for each format and for the HTML pages; everything else is as at first when
/// the form is opened again. While the file is written the form cannot be used or closed.
class frmExportOpts : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmExportOpts(const ExportRequest& request, QWidget* parent = nullptr);

    /// Always false, because nothing is lost with a form that only asks.
    [[nodiscard]] bool IsChanged() const override { return false; }
    void reject() override;

    QGroupBox* fraSelect = nullptr;
    std::array<QRadioButton*, 3> optSelect{};
    ctDEdit* txtfrom = nullptr;
    ctDEdit* txtto = nullptr;
    QGroupBox* fraFile = nullptr;
    TextField* txtFilePath = nullptr;
    QPushButton* cmdCmdDlg = nullptr;
    QComboBox* cboformat = nullptr;  ///< The fixed form, and the standard one.
    QComboBox* cbonames = nullptr;   ///< How the calendar file names patients.
    QComboBox* cbohtmlnames = nullptr;
    QLabel* lblhidden = nullptr;  ///< Says that patients' names are hidden in the file, too.
    QFrame* SSPanel = nullptr;
    QPushButton* cmdok = nullptr;
    QPushButton* cmdcancel = nullptr;

  protected:
    bool takesEscape() override { return exporting_; }
    void closeEvent(QCloseEvent* event) override;

  private:
    // frmexportopts_layout.cpp
    void buildForm();
    QWidget* buildSelection();
    QWidget* buildFile();
    void buildPanel();
    void showPanel();
    QComboBox* namesCombo(const char* name, QWidget* parent);

    void bindForm();
    void showNaming();
    void keepNaming(const QComboBox& combo, ExportFormat format);
    [[nodiscard]] ExportFormat format() const;
    [[nodiscard]] ExportChoice choice() const;
    /// Returns the path of the file as a whole, or an empty text.
    [[nodiscard]] QString path() const;

    void cmdCmdDlg_Click();
    void cmdok_Click();
    /// Checks the dates in order. The first one that prevents the export is reported and gets the focus.
    [[nodiscard]] bool validate();
    /// Makes the form unusable while it exports, and usable again.
    void setExporting(bool exporting);
    void WriteICalFile(const QString& path, const std::vector<ExportedAppointment>& rows);
    [[nodiscard]] QByteArray fileOf(const std::vector<ExportedAppointment>& rows) const;
    /// Tells the user how the export ended, and closes the form. `failure` is empty after a success.
    void finish(const QString& path, const QString& failure);

    const ExportRequest request_;
    bool exporting_ = false;
    QPointer<QWidget> focus_;  ///< The field that had the focus when the export began.
};
