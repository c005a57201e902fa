#pragma once

#include <QComboBox>
#include <QDate>
#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class ctList;

/// Whether the provider has something booked on the date in the way of `start` to `end` (minutes). Type slots are not
/// in the way, cancelled and missed appointments are; back-to-back bookings pass. A query that fails finds nothing.
[[nodiscard]] bool slotbooked(QDate date, int start, int end, const QString& clinicianId);

/// Looks through the blocks of time that a provider has set aside for an appointment type, from today on, for the first
/// free stretch of a length: one for each block, on a grid of five minutes from the block's start. The first try of a
/// block is not tested against the block's end, so that a block shorter than the length, but of at least five minutes,
/// can give a stretch that runs past it. Work schedules play no part. A shared activity that the provider attends is in
/// the way of none; what of them falls into a stretch stands beside it.
///
/// The openings are those of the chosen provider: choosing another one empties the list.
///
/// Going to a result puts the provider into the session, where another one was chosen, and the date into JumpDate.
class frmfirstatype : public QDialog {
    Q_OBJECT

  public:
    explicit frmfirstatype(QWidget* parent = nullptr);

    /// The date of the result that the user went to; invalid where the form was only closed.
    [[nodiscard]] QDate JumpDate() const { return jumpDate_; }
    [[nodiscard]] bool ProviderChanged() const { return providerChanged_; }

    QComboBox* cboProviders = nullptr;
    QComboBox* cboatypes = nullptr;
    QLineEdit* txtlength = nullptr;
    QPushButton* cmdsearch = nullptr;
    QPushButton* cmdstop = nullptr;
    ctList* ctList1 = nullptr;
    QLabel* lblcount = nullptr;
    QPushButton* cmdgoto = nullptr;
    QPushButton* cmdclose = nullptr;

    /// While a search runs, Escape and the window's button stop it; the form stays.
    void reject() override;

  private:
    void buildForm();
    void layOutForm();
    void loadtypes();
    void loadprovs();
    void followFields();
    void cmdsearch_Click();
    void search(int length, const QString& provider);
    void addResult(QDate date, int start, int length, const QString& attends);
    void dropResults();
    void cmdgoto_Click();
    /// Makes the chosen provider the session's; false where they have no logon, and the session keeps its own.
    [[nodiscard]] bool jumptoclinician();
    void jumptodate(int row);

    QDate jumpDate_;
    bool providerChanged_ = false;
    bool searching_ = false;
    bool stop_ = false;
};
