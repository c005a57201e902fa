#pragma once

#include <vector>

#include "shell/providerpanel.h"
#include "views/calendarview.h"

class QComboBox;
class QPushButton;

/// The whole practice's day: every active provider is a column. The panel beside them says whose columns are shown.
///
/// Column n of the calendar, List1[n - 1] and entry n - 1 of cboprovs always are the same provider. What is booked is
/// booked for the provider who stands in cboprovs, which follows the column that the user works in; what is selected
/// follows cboprovs in turn, so that nobody's appointment is saved for another provider unseen. All-day entries and
/// activities of several providers are shown on the day view alone.
class frmall : public CalendarView {
    Q_OBJECT

  public:
    explicit frmall(MainWindow& main, QWidget* parent = nullptr);

    /// Fills the panel, the disciplines and the columns: every provider of the practice, and the user in any case.
    void LoadProviders();
    /// Whether the provider is on the panel and checked there.
    [[nodiscard]] bool providerchecked(const QString& id) const;
    /// Makes the columns of the checked providers.
    void resetcols();
    /// Reads the main window's date. Appointments and holidays that cannot be read are told, so that nobody books into
    /// a day that only looks free.
    void loadmdayview();
    /// Shades the time outside the providers' working hours. On a weekday for which the practice holds fewer than two
    /// rows of hours nothing is shaded.
    void LoadWorkSchedule(QDate date);

    void displayapptinfo(int index) override;
    void Reload() override;
    void ApplyPreferences() override;
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override { return from.addDays(direction); }
    /// The toolbar's command adds on the day and the week.
    [[nodiscard]] bool CanAdd() const override { return false; }
    [[nodiscard]] BookedProvider Provider() const override;

  protected:
    void reloadWhole() override;
    [[nodiscard]] std::optional<BookedProvider> providerOfColumn(int column) const override;
    [[nodiscard]] QString nameOfProvider(const QString& id) const override;
    [[nodiscard]] bool showsCallsOfAwaitedOnly() const override { return true; }
    /// As many columns on a page as the print options say, five where they say nothing.
    [[nodiscard]] ScheduleSheet sheet() const override;
    void followProvider() override;
    [[nodiscard]] QString whyUnseen(const FoundAppointment& found) const override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // frmall_layout.cpp
    void layOut();
    void makePanel();

    void connectPanel();
    void showColumns();
    void filter(int index);
    void showChosen();
    void goToProvider();
    void selectColumn(int column);
    [[nodiscard]] int columnOf(const QString& provider) const;
    void chooseColumn(int column);
    void askBeforeDrop(int index, const ItemPlace& place, bool* cancel);
    [[nodiscard]] QStringList dayStatements() const;

    std::vector<QString> List1;  ///< The provider's id of each column.
    ProviderPanel* panel_ = nullptr;
    bool providersRead_ = false;
    bool sized_ = false;  ///< The view has had its first size.
    QComboBox* cbodisc = nullptr;
    QComboBox* cboprovs = nullptr;
    QPushButton* cmdgo = nullptr;
};
