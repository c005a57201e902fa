#pragma once

#include <QFrame>
#include <QTimer>

class QKeyEvent;
class QLabel;
class QLineEdit;
class ctList;

/// A list below a box that shows the patients who fit the typed text, with the data that tells namesakes apart. The
/// list appears only where more than one patient fits. It never takes the focus: the user goes on typing in the box,
/// and the box hands it the keys that are meant for it.
///
/// The list reads one statement of bounded length after a pause in the typing, so that no key waits for it. When the
/// patients cannot be read, no list appears; the look-up of the box itself tells the reason.
class MatchList : public QFrame {
    Q_OBJECT

  public:
    /// `form` is the form of which the list covers a part.
    MatchList(QLineEdit& box, QWidget& form);

    /// Looks for the typed text at the next pause in the typing.
    void LookFor(const QString& typed);
    /// Hides the list and drops a look-up that is still due.
    void Forget();
    /// Does a look-up that is still due at once. Returns whether the list is visible, so that one of its patients has
    /// to be chosen.
    bool Ask();
    /// Whether the list is visible and belongs to the text that is typed now.
    [[nodiscard]] bool IsShown() const { return isVisible() && !due_.isActive(); }
    /// Moves the mark for Up, Down and the page keys. Returns false for any other key.
    bool MoveMark(const QKeyEvent& key);
    /// The `patient_info.id` of the marked patient.
    [[nodiscard]] QString MarkedId() const;
    /// Puts the list below the box again, after the form has changed its size.
    void PlaceBelowBox();

    ctList* lstmatches = nullptr;
    QLabel* lblmore = nullptr;  ///< Tells that more patients fit than the list holds.

  Q_SIGNALS:
    /// The user clicked the patient with this id.
    void Clicked(const QString& id);

  private:
    void buildList();
    void read();
    void tellMark();

    QLineEdit& box_;
    QWidget& form_;
    QTimer due_;
    QString typed_;
};
