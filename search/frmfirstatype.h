#pragma once

#include <QComboBox>
#include <QDate>
#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class ctList;

/// Whether the provider has a booking on the date between `start` and `end` (minutes since midnight). Type slots do not
/// count, cancelled and missed appointments do, and a booking that only touches the time does not. A failing query
/// counts as finding nothing. Only a database that does not answer at all throws DatabaseError, because any time would
/// otherwise look free.
[[nodiscard]] bool slotbooked(QDate date, int start, int end, const QString& clinicianId);

/// Looks for free time in the blocks that a provider has set aside for an appointment type, from today on. It offers
/// the first free stretch of the wanted length in each block, on a grid of five minutes from the block's start. The
/// first try in a block is not compared with the block's end, so that a block of at least five minutes but shorter than
/// the length can offer a stretch that runs past it. Work schedules are not looked at. A shared activity that the
/// provider attends does not block a stretch; an activity during the stretch is shown beside it.
///
/// The results belong to the chosen provider: choosing another one empties the list.
///
/// "Go To" a result puts a provider other than the session's into the session, and the date into JumpDate.
class frmfirstatype : public QDialog {
    Q_OBJECT

  public:
    explicit frmfirstatype(QWidget* parent = nullptr);

    /// The date of the result that the user went to; invalid when the form was only closed.
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

    /// Stops a running search by Escape or the window's close button; the form stays. Otherwise it closes the form.
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
    /// Makes the chosen provider the session's. Returns false when the provider has no logon; the session then keeps
    /// its own.
    [[nodiscard]] bool jumptoclinician();
    void jumptodate(int row);

    QDate jumpDate_;
    bool providerChanged_ = false;
    bool searching_ = false;
    bool stop_ = false;
};
