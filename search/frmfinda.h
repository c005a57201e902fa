#pragma once

#include <optional>
#include <QDate>
#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class ctList;

/// Where a found appointment stands.
struct FoundAppointment {
    QString key;
    QDate date;
    int start = 0;  ///< Minutes since midnight.
};

/// Finds the appointments of the session's provider, past and future, by a text: one letter finds those that begin with
/// it, a longer text those that hold it. What was found can be printed. The caller shows the form modally and goes to
/// what Found tells.
class frmfinda : public QDialog {
    Q_OBJECT

  public:
    explicit frmfinda(QWidget* parent = nullptr);

    /// The appointment that the user chose to go to; nothing where the form was only closed.
    [[nodiscard]] const std::optional<FoundAppointment>& Found() const { return found_; }

    QLineEdit* txtfind = nullptr;
    QPushButton* cmdfind = nullptr;
    ctList* ctList1 = nullptr;
    QLabel* lblcount = nullptr;
    QCheckBox* ckselected = nullptr;
    QPushButton* cmdprint = nullptr;
    QPushButton* cmdgoto = nullptr;
    QPushButton* cmdclose = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

  private:
    void buildForm();
    void layOutForm();
    void cmdfind_Click();
    void addHits();
    void allowResults(bool allowed);
    void cmdgoto_Click();
    void cmdprint_Click();

    std::optional<FoundAppointment> found_;
};
