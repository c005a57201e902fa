#pragma once

#include <functional>
#include <QDate>

#include "shell/finddialog.h"

/// Where a found booking stands.
struct FoundBooking {
    int key = 0;
    int room = 0;  ///< RoomID.
    QDate date;
    int start = 0;  ///< Minutes since midnight.
};

/// Finds bookings of every room by a text in their description, and goes to the one that the user chooses.
class frmfroom : public FindDialog {
    Q_OBJECT

  public:
    /// Shows a booking; what keeps it from that, "" where it is shown.
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
