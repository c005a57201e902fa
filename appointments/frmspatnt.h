#pragma once

#include <QDialog>

class FillProgress;
class PatientFiller;
class QLabel;
class QLineEdit;
class QPushButton;
class ctList;

/// Lets the user choose a patient from the list of all patients, which can be used while it is still being filled. The
/// caller shows the form modally and takes the patient whose id ChosenId returns.
class frmspatnt : public QDialog {
    Q_OBJECT

  public:
    explicit frmspatnt(QWidget* parent = nullptr);

    /// Returns the `patient_info.id` of the chosen patient. It is empty when the form was closed without a choice.
    [[nodiscard]] const QString& ChosenId() const { return chosenId_; }

    ctList* ctList1 = nullptr;
    QLineEdit* txtfind = nullptr;
    QPushButton* cmdfind = nullptr;
    FillProgress* pnlprogress = nullptr;
    QLabel* pnlcount = nullptr;
    QPushButton* cmdselect = nullptr;
    QPushButton* cmdcancel = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

  private:
    void buildForm();
    void layOutForm();
    void connectControls();
    void filter(const QString& text);
    void select(int row);

    PatientFiller* filler_ = nullptr;
    QString chosenId_;
};
