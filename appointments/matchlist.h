#pragma once

#include <QFrame>
#include <QTimer>

class QKeyEvent;
class QLabel;
class QLineEdit;
class ctList;

/// The patients who fit what is typed into a box, below it, with what tells namesakes apart. It comes only where more
/// than one fits, and never takes the focus: the user goes on typing, and the keys for it come through the box.
///
/// It reads once the typing pauses, one statement of bounded length, so that no key waits for it. Where the patients
/// cannot be read there is no list; the look-up of the box itself tells why.
class MatchList : public QFrame {
    Q_OBJECT

  public:
    /// `form` is what the list covers a part of.
    MatchList(QLineEdit& box, QWidget& form);

    /// Looks for what was typed, at the next pause.
    void LookFor(const QString& typed);
    /// Nothing is to be chosen any more.
    void Forget();
    /// Looks at once where that is still due. Whether the list is in sight, so that one of its patients has to be
    /// taken.
    bool Ask();
    /// Whether the user has had the list for what is typed now in sight.
    [[nodiscard]] bool IsShown() const { return isVisible() && !due_.isActive(); }
    /// Up, Down and the page keys move the mark; false for any other key.
    bool MoveMark(const QKeyEvent& key);
    /// The `patient_info.id` of the marked patient.
    [[nodiscard]] QString MarkedId() const;
    /// Puts the list below the box again, after the form has changed its size.
    void PlaceBelowBox();

    ctList* lstmatches = nullptr;
    QLabel* lblmore = nullptr;  ///< That there are more than the list holds.

  Q_SIGNALS:
    /// The user clicked the patient of that id.
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
