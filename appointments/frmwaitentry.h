#pragma once

#include <array>

#include "appointments/waitlist.h"
#include "session/editordialog.h"

class NoteField;
class PatientBox;
class QCheckBox;
class QLabel;
class QPushButton;
class ctDEdit;
class ctList;
class ctNEdit;

/// Edits one entry of the wait list: who waits, for how long a visit, with whom, on which days, between which times and
/// until when. OK saves it and accepts the form. What is missing is told in a box, and the field gets the focus. A save
/// that fails leaves the form open with all that was typed; an entry that another desk has closed or deleted meanwhile
/// is told, and the form then closes.
class frmwaitentry : public EditorDialog {
    Q_OBJECT

  public:
    static constexpr int WeekDays = 7;

    /// A row with the id 0 is a new entry, which begins with what the row holds. Its length is 0 where it is not known;
    /// the length of the patient's usual service is then proposed.
    explicit frmwaitentry(WaitRow row, QWidget* parent = nullptr);

    [[nodiscard]] QString Subject() const override { return tr("entry of the wait list"); }

    PatientBox* pnlpatient = nullptr;
    ctNEdit* ctlength = nullptr;
    ctList* List1 = nullptr;                   ///< The providers, checked where they are wanted.
    QLabel* lblproviders = nullptr;            ///< Whom the entry waits for, in words.
    std::array<QCheckBox*, WeekDays> ckday{};  ///< Sunday to Saturday.
    ctDEdit* ctfrom = nullptr;
    ctDEdit* ctto = nullptr;
    ctDEdit* ctuntil = nullptr;
    NoteField* txtnote = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

  protected:
    bool takesEscape() override;

  private:
    void buildForm();
    [[nodiscard]] QWidget* buildWhat();
    [[nodiscard]] QLayout* buildDays(QWidget* parent);
    [[nodiscard]] QLayout* buildTimes(QWidget* parent);
    [[nodiscard]] QWidget* buildProviders();
    void load();
    void loadProviders();
    void addProvider(const QString& id, const QString& name);
    void showProviders();
    void proposeLength();
    void cmdOk_Click();
    [[nodiscard]] bool validate();
    [[nodiscard]] WaitRow entered() const;
    [[nodiscard]] QStringList checkedProviders() const;
    [[nodiscard]] int checkedDays() const;
    [[nodiscard]] MinuteRange enteredTimes() const;

    const WaitRow row_;
    double proposedLength_ = 0;  ///< The length that the form has set itself.
};
