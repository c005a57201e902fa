#pragma once

#include <optional>
#include <QWidget>

#include "appointments/patientlist.h"

class MatchList;
class QKeyEvent;
class QPushButton;
class TextField;

/// A field for a patient on a form, with the look-up of the appointment editor: the typed text is completed to the
/// first patient whose name begins with it, several who fit are listed below it, and a button opens the list of all
/// patients. Keys in the list of matches: Up, Down, the page keys, Enter takes the marked one, Escape closes it.
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
    /// Settles what Enter or a click on OK finds unsettled. Returns false when the user first has to choose one of
    /// several patients who fit.
    bool Settle();
    /// Closes the list of matches, if it is open. Returns whether it was.
    bool CloseMatches();

    TextField* txtpatients = nullptr;
    QPushButton* cmdPatientList = nullptr;
    MatchList* pnlmatches = nullptr;

  Q_SIGNALS:
    void Changed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void lookUp();
    void choose(const std::optional<PatientFacts>& patient);
    void take(const QString& id);
    void pick();
    bool keyForMatches(const QKeyEvent& key);

    QWidget& form_;
    std::optional<PatientFacts> patient_;
    bool takesAway_ = false;  ///< Whether the key that is being handled takes characters away.
};
