#pragma once

#include <optional>
#include <QObject>
#include <QTimer>

#include "appointments/patientlist.h"

class MatchList;
class QKeyEvent;
class QLineEdit;

/// The look-up of a patient in a line edit, for a form that needs no more of a patient than who it is. What is typed is
/// completed to the first patient whose name begins so. Where several fit, a list below the box shows what tells them
/// apart, and Up and Down mark one of them.
///
/// Enter, and leaving the box, settle who is meant: the marked patient of the list, else the completed one, else
/// nobody. Letters that come quicker than the database answers are looked up together.
class PatientLookUp : public QObject {
    Q_OBJECT

  public:
    /// `form` is the form of which the list covers a part.
    PatientLookUp(QLineEdit& box, QWidget& form);

    /// Returns the patient who is settled or would be settled now; nothing where nobody fits or the box is empty.
    [[nodiscard]] const std::optional<PatientFacts>& Patient() const { return patient_; }
    /// Puts the patient with this id into the box and settles it. The user is told when the patient cannot be read.
    void Choose(const QString& id);
    /// Whether the list of those who fit is open, so that it is not settled yet who is meant.
    [[nodiscard]] bool IsAsking() const;
    /// Closes the list of those who fit. Returns whether it was open.
    bool CloseList();
    /// Puts the list below the box again, after the form has changed its size.
    void PlaceList();

  Q_SIGNALS:
    /// Another patient stands in the box, or none.
    void Changed();
    /// The user has settled who is meant, by Enter when `byEnter`.
    void Settled(bool byEnter);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void lookUp();
    void lookUpNow();
    [[nodiscard]] bool takesKey(const QKeyEvent& key);
    [[nodiscard]] bool asksForOne(bool wasShown);
    void leave();
    void take(const QString& id);
    void settle(bool byEnter);
    void setPatient(const std::optional<PatientFacts>& patient);

    QLineEdit& box_;
    QWidget& form_;
    MatchList* matches_;
    std::optional<PatientFacts> patient_;
    QTimer due_;
    bool takesAway_ = false;  ///< Whether the key that is being handled takes characters away.
};
