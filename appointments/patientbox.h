#pragma once

#include <optional>
#include <QTimer>
#include <QWidget>

#include "appointments/patientlist.h"

class MatchList;
class QKeyEvent;
class QPushButton;
class TextField;

/// A field for a patient on a form that needs no more of a patient than who it is. What is typed is completed to the
/// first patient whose name begins so, a list below the field shows what tells several who fit apart, and a button
/// opens the list of all patients. Letters that come quicker than the database answers are looked up together.
///
/// Up, Down and the page keys mark one of the list; Enter takes the marked one, and another Enter is for the form.
/// Leaving the field takes the marked one as well. Nobody is taken from a list that came with the very key: the list
/// stays, and the focus comes back to the field.
class PatientBox : public QWidget {
    Q_OBJECT

  public:
    /// `form` is the form of which the list of matches covers a part.
    explicit PatientBox(QWidget& form);

    /// Shows a patient, archived or not. Returns false when there is no such patient or the record could not be read,
    /// which the user has been told.
    bool SetPatient(const QString& id);
    /// Shows a name for which there is no record any more. Nobody is chosen then.
    void ShowName(const QString& name);
    /// The chosen patient; nothing while the text is nobody's name.
    [[nodiscard]] const std::optional<PatientFacts>& Patient() const { return patient_; }
    /// Whether the list of those who fit is open, so that it is not settled yet who is meant.
    [[nodiscard]] bool IsAsking() const;
    /// Settles what Enter or a click on OK finds unsettled. Returns false when the user first has to choose one of
    /// several patients who fit.
    bool Settle();
    /// Closes the list of matches, if it is open. Returns whether it was.
    bool CloseMatches();
    /// Puts the list below the field again, after the form has changed its size.
    void PlaceMatches();

    TextField* txtpatients = nullptr;
    QPushButton* cmdPatientList = nullptr;
    MatchList* pnlmatches = nullptr;

  Q_SIGNALS:
    /// Another patient stands in the field, or none.
    void Changed();
    /// It is settled who is meant, `byChoice` when one was picked from a list.
    void Settled(bool byChoice);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void lookUp();
    void lookUpNow();
    void choose(const std::optional<PatientFacts>& patient);
    void take(const QString& id);
    void pick();
    [[nodiscard]] bool takesKey(const QKeyEvent& key);
    [[nodiscard]] bool takesEnter();
    [[nodiscard]] bool takesMarked();
    void leave(bool byKey);
    void settle(bool byChoice);

    QWidget& form_;
    std::optional<PatientFacts> patient_;
    QTimer due_;
    bool takesAway_ = false;  ///< Whether the key that is being handled takes characters away.
    bool seen_ = false;       ///< Whether the list stood there when the last key came.
};
