#pragma once

#include <QDate>
#include <QDialog>
#include <QStringList>

class QLabel;
class QPushButton;
class ctDEdit;
class ctList;

/// Asks who is free on one date between two times. Whatever a provider has booked there makes them busy: cancelled and
/// missed appointments, activities, unavailable time and type slots too; a booking that only touches the window does
/// not. Work schedules play no part. A shared activity makes none of those who attend it busy: each is listed, with the
/// activity beside the name.
///
/// Going to a provider puts id and name into the session and the date into JumpDate; closing leaves JumpDate invalid,
/// which leads the caller to today.
class frmsavail : public QDialog {
    Q_OBJECT

  public:
    explicit frmsavail(QWidget* parent = nullptr);

    [[nodiscard]] QDate JumpDate() const { return jumpDate_; }

    ctDEdit* ctdate = nullptr;
    ctDEdit* ctstart = nullptr;
    ctDEdit* ctend = nullptr;
    QPushButton* cmdsearch = nullptr;
    ctList* List1 = nullptr;  ///< The free providers: surname, id, and what they attend at that time.
    QLabel* lblcount = nullptr;
    QPushButton* cmdgoto = nullptr;
    QPushButton* cmdclose = nullptr;

  private:
    void buildForm();
    void layOutForm();
    void cmdsearch_Click();
    void cmdgoto_Click();
    /// The first field that keeps the search from starting is told and focused; true when all is well.
    [[nodiscard]] bool validate();
    [[nodiscard]] QStringList busyProviders() const;
    void listFree(const QStringList& busy);

    QDate jumpDate_;
};
