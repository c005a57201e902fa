#pragma once

#include "platform/controls/ctdedit.h"

// The fields for the day and the time that the companion's editors share. Both select their whole text on entry.

/// Returns a new field for a date in the system's order, which Up and Down move by a day. `parent` owns the field.
[[nodiscard]] ctDEdit* CompanionDateField(const char* name, const QString& accessibleName, QWidget* parent);

/// A field for the time at which a row of the companion starts, in the user's form. Up and Down move it by the minutes
/// of a calendar row. A step that would lead to midnight, at either end of the day, is not taken, because the companion
/// takes a row at midnight for one without a time. A typed midnight stands.
class StartTimeField : public ctDEdit {
    Q_OBJECT

  public:
    StartTimeField(const char* name, const QString& accessibleName, QWidget* parent);

    void stepBy(int steps) override;

  protected:
    [[nodiscard]] StepEnabled stepEnabled() const override;

  private:
    [[nodiscard]] bool mayStep(int steps) const;

    int slotMinutes_;
};

/// Returns a name of the companion as a list shows it. A name that the database could not put together, because one of
/// its parts is missing, is shown as the key of its row, so that the row can be told from others.
[[nodiscard]] QString NameOrKey(const QString& name, int key);
