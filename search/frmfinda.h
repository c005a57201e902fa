#pragma once

#include <optional>

#include "shell/finddialog.h"
#include "shell/foundappointment.h"

/// Finds the appointments of the session's provider, past and future, by a text. One letter finds the texts that begin
/// with it; a longer text finds those that contain it. The results can be printed. The caller shows the form modally
/// and then goes to the appointment in Found.
class frmfinda : public FindDialog {
    Q_OBJECT

  public:
    explicit frmfinda(QWidget* parent = nullptr);

    /// The appointment that the user chose to go to; empty when the form was only closed.
    [[nodiscard]] const std::optional<FoundAppointment>& Found() const { return found_; }

  protected:
    [[nodiscard]] QString statementFor(const QString& text) const override;
    [[nodiscard]] QStringList listLine(const db::Recordset& row) const override;
    void nameHits(db::Recordset& rows) override;
    void goTo(qint64 key) override;

  private:
    std::optional<FoundAppointment> found_;
};
