#pragma once

#include <QWidget>

class AttendeeList;
class FormHeading;
class QLabel;
class ctDEdit;

/// Makes a form's heading follow its day and its attendees: "Reed", "Lane and Reed", "3 providers".
void HeadByAttendees(FormHeading& heading, const ctDEdit& day, const AttendeeList& attendees);

/// A list of attendees under its label. The lines below the list tell in words who attends, and name a few.
class AttendeePanel : public QWidget {
    Q_OBJECT

  public:
    explicit AttendeePanel(QWidget* parent = nullptr);

    AttendeeList* List1 = nullptr;
    QLabel* lblattendees = nullptr;

  private:
    void showAttendees();
    [[nodiscard]] static QString summary(const QStringList& names, int named);
    /// Whether the text finds room in the lines below the list.
    [[nodiscard]] bool fits(const QString& text) const;
};
