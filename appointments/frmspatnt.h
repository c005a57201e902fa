#pragma once

#include <QDialog>

class PatientFiller;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class ctList;

/// The choice of a patient from the list of all, which fills while the form is used already. The caller shows it
/// modally and takes the patient whose id ChosenId tells.
class frmspatnt : public QDialog {
    Q_OBJECT

  public:
    explicit frmspatnt(QWidget* parent = nullptr);

    /// The `patient_info.id` of the chosen patient; empty where the form was only closed.
    [[nodiscard]] const QString& ChosenId() const { return chosenId_; }

    ctList* ctList1 = nullptr;
    QLineEdit* txtfind = nullptr;
    QPushButton* cmdfind = nullptr;
    QProgressBar* pnlprogress = nullptr;  ///< How much of the list is there, in percent; hidden once all is.
    QLabel* pnlcount = nullptr;
    QPushButton* cmdselect = nullptr;
    QPushButton* cmdcancel = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

  private:
    void buildForm();
    void layOutForm();
    void connectControls();
    void showProgress(int loaded, int total);
    void select(int row);

    PatientFiller* filler_ = nullptr;
    QString chosenId_;
};
