#pragma once

#include <vector>

#include "shell/providerpanel.h"
#include "views/calendarview.h"

class QComboBox;
class QPushButton;

/// The view of all providers: one day of the whole practice, with a column for each active provider. The panel beside
/// the columns chooses which providers are shown.
///
/// Column n of the calendar, List1[n - 1] and entry n - 1 of cboprovs are always the same provider. Appointments are
/// booked for the provider in cboprovs. cboprovs follows the column that the user works in. When the user chooses a
/// provider in cboprovs, the selected time moves to that provider's column and an appointment of another provider is no
/// longer selected, so that no appointment is saved for the wrong provider unnoticed. This view shows
/// neither all-day entries nor activities of several providers.
///
/// Two switches, off at first and kept for the user, show as many columns as fit and only the providers who work on the
/// day.
class frmall : public CalendarView {
    Q_OBJECT

  public:
    explicit frmall(MainWindow& main, QWidget* parent = nullptr);

    /// Fills the panel, the list of disciplines and the columns with the active providers of the practice who are not
    /// excluded from the scheduler. The user is listed even when excluded.
    void LoadProviders();
    /// Whether the provider is on the panel and checked there.
    [[nodiscard]] bool providerchecked(const QString& id) const;
    /// Makes the columns of the checked providers, without those who are left out because they do not work.
    void resetcols();
    /// Reads the day of the main window's date. When appointments or holidays cannot be read, the user is told, so that
    /// nobody books into a day that only looks free.
    void loadmdayview();
    /// Shades the time outside the providers' working hours. Nothing is shaded on a weekday for which fewer than two
    /// rows of hours are stored.
    void LoadWorkSchedule(QDate date);

    void displayapptinfo(int index) override;
    void Reload() override;
    void ApplyPreferences() override;
    /// Keeps the providers that have columns, the filter, how many columns share the width, and the two switches.
    void AddContents(ViewContents& contents) const override;
    void ShowContents(const ViewContents& contents) override;
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override { return from.addDays(direction); }
    /// Returns false: the toolbar's command adds appointments only in the day and the week view.
    [[nodiscard]] bool CanAdd() const override { return false; }
    [[nodiscard]] BookedProvider Provider() const override;

  protected:
    void reloadWhole() override;
    [[nodiscard]] std::optional<BookedProvider> providerOfColumn(int column) const override;
    [[nodiscard]] NextFreeRequest nextFreeRequest() const override;
    [[nodiscard]] int columnFor(QDate date, const QString& provider) const override;
    [[nodiscard]] QString nameOfProvider(const QString& id) const override;
    [[nodiscard]] bool mayDrop(const CalendarItem& item, const ItemPlace& place) override;
    [[nodiscard]] bool showsCallsOfAwaitedOnly() const override { return true; }
    [[nodiscard]] bool givesSlip(int code, int apptType) const override;
    /// Puts as many columns on a page as the print options say, from 1 to 9, and five when they say nothing valid.
    /// A saved view is printed with the columns that it has on the screen.
    [[nodiscard]] ScheduleSheet sheet(const PrintOptions& options) const override;
    /// Returns the day of all providers.
    [[nodiscard]] ReportOpening reportOpening() const override;
    void followProvider() override;
    [[nodiscard]] QString whyUnseen(const FoundAppointment& found) const override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // frmall_layout.cpp
    void layOut();
    void makePanel();

    void connectPanel();
    void readColumns();
    void showColumns();
    void filter(int index);
    void showChosen();
    void goToProvider();
    void selectColumn(int column);
    [[nodiscard]] int columnOf(const QString& provider) const;
    /// The column of a provider, who gets one where the panel lists the provider unchecked; 0 for none.
    int columnWith(const QString& provider);
    void chooseColumn(int column);
    void askBeforeDrop(int index, const ItemPlace& place, bool* cancel);
    [[nodiscard]] QStringList dayStatements() const;
    [[nodiscard]] static QString appointmentsStatement(QDate date);
    [[nodiscard]] static QString hoursStatement(QDate date);

    // frmall_switches.cpp
    void bindSwitches();
    [[nodiscard]] static QStringList switchStatements();
    void readSwitches();
    [[nodiscard]] bool showsWorkingOnly() const;
    [[nodiscard]] QSet<QString> whoWorks(QDate date) const;
    /// Takes the columns of those away who do not work on the day, while the user wants only who works.
    void leaveOutIdle(QDate date);
    void takeContents(const ViewContents& contents);
    void goToColumnOf(const ViewContents& contents);
    [[nodiscard]] int wantedColumns() const { return savedColumns_.value_or(preferredColumns_); }

    static constexpr int FewestColumns = 5;
    static constexpr int MostColumns = 10;

    std::vector<QString> List1;  ///< The provider's id for each column.
    ProviderPanel* panel_ = nullptr;
    QSet<QString> idle_;  ///< Who is left out of the columns, in small letters, because they do not work on the day.
    QString followed_;    ///< A provider, in small letters, who was gone to and keeps a column all the same.
    int preferredColumns_ = FewestColumns;
    std::optional<int> savedColumns_;  ///< How many columns the saved view that is shown has side by side.
    bool providersRead_ = false;
    bool sized_ = false;  ///< Whether the view has had its first size.
    QComboBox* cbodisc = nullptr;
    QComboBox* cboprovs = nullptr;
    QPushButton* cmdgo = nullptr;
};
