#pragma once

#include <functional>
#include <QDate>

#include "shell/finddialog.h"

/// The room, date and time of a found booking.
struct FoundBooking {
    int key = 0;
    int room = 0;  ///< RoomID.
    QDate date;
    int start = 0;  ///< Minutes since midnight.
};

/// Finds bookings of every room by a text in their description and goes to the one that the user chooses.
class frmfroom : public FindDialog {
    Q_OBJECT

  public:
    /// Goes to a booking. Returns the reason why it cannot be shown, or "" when it is shown.
    using GoTo = std::function<QString(const FoundBooking& booking)>;

    explicit frmfroom(GoTo goTo, QWidget* parent = nullptr);

  protected:
    [[nodiscard]] QString statementFor(const QString& text) const override;
    [[nodiscard]] QStringList listLine(const db::Recordset& row) const override;
    void nameHits(db::Recordset& rows) override;
    void goTo(qint64 key) override;

  private:
    GoTo goTo_;
};
