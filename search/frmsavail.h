#pragma once

#include <QDate>
#include <QDialog>
#include <QStringList>

class QLabel;
class QPushButton;
class ctDEdit;
class ctList;

/// Finds the providers who are free on one date between two times. Every booking makes its provider busy: cancelled and
/// missed appointments, activities, unavailable time and type slots too. A booking that only touches the window does
/// not. Work schedules are not looked at. A shared activity makes none of its attending providers busy; they are listed
/// with the activity beside the name.
///
/// "Go To" a provider puts the id and name into the session and the date into JumpDate. Closing the form leaves
/// JumpDate invalid, and the caller then goes to today.
class frmsavail : public QDialog {
    Q_OBJECT

  public:
    explicit frmsavail(QWidget* parent = nullptr);

    [[nodiscard]] QDate JumpDate() const { return jumpDate_; }

    ctDEdit* ctdate = nullptr;
    ctDEdit* ctstart = nullptr;
    ctDEdit* ctend = nullptr;
    QPushButton* cmdsearch = nullptr;
    ctList* List1 = nullptr;  ///< The free providers: surname, id, and the activity that they attend at that time.
    QLabel* lblcount = nullptr;
    QPushButton* cmdgoto = nullptr;
    QPushButton* cmdclose = nullptr;

  private:
    void buildForm();
    void layOutForm();
    void cmdsearch_Click();
    void cmdgoto_Click();
    /// Checks the fields in order. The first one that prevents the search is reported and gets the focus. Returns
    /// whether all are valid.
    [[nodiscard]] bool validate();
    [[nodiscard]] QStringList busyProviders() const;
    void listFree(const QStringList& busy);

    QDate jumpDate_;
};
