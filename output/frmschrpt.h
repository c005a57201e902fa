#pragma once

#include <array>
#include <QDate>
#include <QDialog>
#include <QStringList>

#include "output/report.h"

class PrintPreview;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class VSPrinter;
class ctDEdit;
namespace db {
class Connection;
}

/// The reports that frmschrpt makes.
enum class ReportMode {
    Schedule,       ///< doschedule and DoSchedule2
    Cancellation,   ///< docancelreport
    CourtesyCalls,  ///< CourtesyCallStatusReport
    Companion,      ///< DoScheduleFH
};

/// What frmschrpt begins with.
struct ReportOpening {
    ReportMode mode = ReportMode::Schedule;
    QDate from = {}, to = {};
    QString provider = {};  ///< An id of cboprovider (in the companion's mode a ProvId), or "" for all providers.
};

/// Makes a report and shows it as it will be on paper, where it can be printed or saved as a PDF.
///
/// The report is made as soon as the form is shown (unless its lists could not be read), and anew by Refresh (F5) and
/// by the filter. Its first pages can be looked at while the rest is made. Meanwhile it can be cancelled (Escape too),
/// the form can be closed, and Refresh and the filter begin it anew. What was cancelled, or ended by the database, says
/// on its last page that it is cut short. Only a report that has ended can be printed or saved.
///
/// A user without the right to all providers has the own schedule alone.
class frmschrpt : public QDialog {
    Q_OBJECT

  public:
    explicit frmschrpt(const ReportOpening& opening, QWidget* parent = nullptr);

    void reject() override;
    /// Whether a report is being made.
    [[nodiscard]] bool IsGenerating() const { return generating_; }

    std::array<ctDEdit*, 2> ctdate{};  ///< The first and the last day.
    QComboBox* cboprovider = nullptr;
    QComboBox* cbosort = nullptr;
    QPushButton* cmdgenerate1 = nullptr;
    QPushButton* cmdfilter = nullptr;  ///< Its caption says what the report shows.
    PrintPreview* vp = nullptr;
    QLabel* lblstatus = nullptr;
    QProgressBar* pnlprogress = nullptr;
    QPushButton* cmdcancel = nullptr;  ///< Ends the report that is being made.
    QPushButton* cmdsave = nullptr;
    QPushButton* cmdprint = nullptr;
    QPushButton* cmdclose = nullptr;
    QStringList List1;  ///< The provider ids, by the places in cboprovider.

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    // frmschrpt_layout.cpp
    void buildForm();
    QLayout* buildFilterBar();
    QLayout* buildFoot();

    // frmschrpt_lists.cpp
    /// Reads the providers and the practice's header, and chooses the provider of the opening.
    void loadLists();
    void LoadSorts();
    void LoadProviders();
    void LoadFHProviders();
    void readHeader();
    void addAllProviders();
    void addProviders(const QString& statement, db::Connection& connection);

    void bindForm();
    void cmdgenerate1_Click();
    void cmdfilter_Click();
    void cmdprint_Click();
    void cmdsave_Click();
    /// Checks the dates in order. The first one that prevents the report is reported and gets the focus.
    [[nodiscard]] bool validate();
    [[nodiscard]] ReportRequest request() const;
    void generate();
    /// Makes the report anew after the names were hidden or shown.
    void makeAnew();
    /// Ends the report that is being made.
    void stop();
    /// Makes one report. Returns false when the form is gone.
    bool makeReport();
    /// Shows what the report has gained.
    void addShown(const VSPrinter& document);
    void tellProgress();
    void endReport(VSPrinter& document, bool whole);
    void setGenerating(bool generating);

    const ReportOpening opening_;
    ReportRequest wanted_;  ///< The report that was asked for last. Its dates are invalid before the first one.
    bool listsRead_ = false;
    QString header_;  ///< The practice's text above its schedules.
    bool begun_ = false;
    bool generating_ = false;
    bool stopped_ = false;  ///< The report that is being made is to end.
    bool again_ = false;    ///< It is to be begun anew.
    bool closing_ = false;  ///< The form is to be closed behind it.
    bool shown_ = false;    ///< The preview shows it as far as it is.
    int row_ = 0;           ///< How far the report is.
    int rows_ = 0;
};
