#pragma once

#include "tests/views/dayfixture.h"

/// A day view with a hand on its calendar.
class DayHand : public DayFixture {
  protected:
    void openByHand() {
        open();
        view_->activateWindow();
        calendar().setFocus();
        settle();
    }
    /// What the rows of appointments and of everything else hold, as the other desk reads it.
    [[nodiscard]] QString stored(qint64 key, const char* column) {
        return database_.text(QStringLiteral("Select %1 from appointments Where nkeyid = %2")
                                  .arg(QLatin1String(column), QString::number(key)));
    }
    /// "{what} Where nkeyid = {key}" on appointments.
    void otherDeskSets(qint64 key, const QString& what) {
        otherDesk(QStringLiteral("Update appointments Set %1 Where nkeyid = %2").arg(what).arg(key));
    }
    void otherDeskDeletes(qint64 key) {
        otherDesk(QStringLiteral("Delete from appointments Where nkeyid = %1").arg(key));
    }
};
