#pragma once

#include "output/appointmentslip.h"
#include "session/editordialog.h"

class NoteField;
class QFormLayout;
class QLabel;
class QPushButton;
class TextField;
class VSPrinter;

/// Prints the slip of one appointment. Every field can be changed for this slip. The notice at its end can also be kept
/// for the user's later slips.
///
/// While patient names are hidden, the slip hides the patient's, on the screen and on paper. The form stays open after
/// printing. It asks before it closes with something typed that was neither printed nor saved.
class frmpappt : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmpappt(const AppointmentSlip& slip, QWidget* parent = nullptr);
    ~frmpappt() override;

    [[nodiscard]] bool IsChanged() const override { return entered() != settled_; }

    NoteField* txtheader = nullptr;
    TextField* txtafor = nullptr;
    TextField* txtawith = nullptr;
    TextField* txtlocation = nullptr;
    TextField* txtdatetime = nullptr;
    NoteField* txtnotice = nullptr;
    QLabel* lblstatus = nullptr;  ///< Says that the notice was saved; empty at first.
    QPushButton* cmdsave = nullptr;
    QPushButton* cmdprint = nullptr;
    QPushButton* cmdclose = nullptr;

  protected:
    [[nodiscard]] QString giveUpQuestion() const override;

  private:
    void buildFields();
    void addFields(QFormLayout& form);
    void layOut();
    void bindForm();
    void loadHeader();
    void loadNotice();
    void followHiddenNames(bool hidden);
    void cmdsave_Click();
    void cmdprint_Click();
    void showStatus(const QString& text);
    /// Returns the texts of the fields in their order, with the name that is hidden.
    [[nodiscard]] QStringList entered() const;
    [[nodiscard]] VSPrinter printedSlip() const;

    const bool namesPatient_;
    bool isHidden_ = false;
    QString hiddenFor_;    ///< The text of txtafor while it is hidden.
    QStringList settled_;  ///< What was entered when the form opened, was last printed, or (the notice) saved.
};
