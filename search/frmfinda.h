#pragma once

#include <optional>
#include <QHash>

#include "shell/finddialog.h"
#include "shell/foundappointment.h"

/// Finds the appointments of the session's provider, past and future, by a text. One letter finds the texts that begin
/// with it; a longer text finds those that contain it. The results can be printed. The caller shows the form modally
/// and then goes to the appointment in Found.
///
/// With ckall it answers "when is this patient here": it searches the schedules of all providers and the members of
/// groups, and lists the next appointment first, those after it, and then those that are past, the latest first. The
/// user's choice of ckall is kept. It can be chosen only by users who may work on every provider's schedule.
class frmfinda : public FindDialog {
    Q_OBJECT

  public:
    /// The most appointments that are listed with ckall, of those nearest in the order of the list.
    static constexpr int MostListed = 2000;

    explicit frmfinda(QWidget* parent = nullptr);

    /// The appointment that the user chose to go to; empty when the form was only closed.
    [[nodiscard]] const std::optional<FoundAppointment>& Found() const { return found_; }
    /// Whether the appointment stands in another provider's schedule. The session then has that provider.
    [[nodiscard]] bool ProviderChanged() const { return providerChanged_; }

    [[nodiscard]] QSize sizeHint() const override;

    QCheckBox* ckall = nullptr;  ///< "All Pro&viders"

  protected:
    [[nodiscard]] QString statementFor(const QString& text) const override;
    [[nodiscard]] QStringList listLine(const db::Recordset& row) const override;
    void listHits(db::Recordset& rows) override;
    [[nodiscard]] QString countText(int hits) const override;
    void nameHits(db::Recordset& rows) override;
    void goTo(qint64 key) override;

  private:
    void showColumns();

    // The search of all providers; these members are in frmfinda_all.cpp.
    void addChoiceOfAll();
    void chooseAll(bool all);
    [[nodiscard]] static QString allStatement(const QString& text);
    void listByNearness(db::Recordset& rows);
    [[nodiscard]] QHash<qint64, QStringList> membersFound() const;
    void turnToProvider(qint64 key, const QString& clinician);

    std::optional<FoundAppointment> found_;
    bool providerChanged_ = false;
    int toCome_ = 0;  ///< With ckall: how many of the hits are still to come.
    int hits_ = 0;    ///< With ckall: how many there are, listed or not.
};
