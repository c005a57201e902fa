#pragma once

#include <array>
#include <deque>
#include <optional>
#include <QDialog>
#include <QHash>
#include <QTimer>
#include <vector>

#include "search/openings.h"

class PatientBox;
class ProviderPanel;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class ctDEdit;
class ctList;
namespace db {
class DatabaseError;
}

/// What the view that opens frmnextfree knows.
struct NextFreeRequest {
    BookedProvider provider;  ///< The provider in whose schedule the view books.
    QStringList chosen;       ///< The ids of the providers whom the view shows, where it shows several but not all.
    bool showsAll = false;    ///< Whether the view shows all providers.
};

/// What is to be booked.
struct NextFree {
    Opening opening;
    QString patientId;            ///< Empty where no patient was chosen.
    QString patientName;          ///< What was typed for a patient who is not known yet.
    std::optional<int> category;  ///< The colour of the chosen appointment type.
};

/// Finds the next free times for a caller. The list fills at once and goes on while the form is used; every change of a
/// field searches anew from the wanted date, today at the earliest. Enter goes from any field to the list, and on an
/// opening it closes the form, so that the caller opens the editor there.
///
/// The length is that of the chosen appointment type, else that of the patient's usual service, else the preference for
/// a new visit, else one row of the calendar, until the user enters another.
///
/// Which providers are searched as "Chosen providers" is kept for the user. Without the right to all schedules only the
/// view's own provider is searched.
class frmnextfree : public QDialog {
    Q_OBJECT

  public:
    static constexpr int MostRows = 100;  ///< So many openings are listed before the user asks for more.

    explicit frmnextfree(const NextFreeRequest& request, QWidget* parent = nullptr);
    ~frmnextfree() override;

    /// What the user chose; nothing when the form was only closed.
    [[nodiscard]] const std::optional<NextFree>& Found() const { return found_; }

    void reject() override;

    QLineEdit* txtpatients = nullptr;
    QPushButton* cmdPatientList = nullptr;
    QLabel* lblpatient = nullptr;  ///< What is known of the patient, or that nobody has the name.
    QSpinBox* txtlength = nullptr;
    QComboBox* cboatypes = nullptr;      ///< The item data is `aptcategorycolor`.
    QComboBox* cboproviders = nullptr;   ///< The items are those of enum Whose.
    std::array<QCheckBox*, 7> ckdays{};  ///< From Sunday to Saturday.
    QComboBox* cbopart = nullptr;        ///< The part of the day.
    ctDEdit* ctstart = nullptr;
    ctDEdit* ctend = nullptr;
    ctDEdit* ctdate = nullptr;
    QCheckBox* ckholidays = nullptr;
    ProviderPanel* panel = nullptr;
    ctList* ctList1 = nullptr;  ///< The openings.
    QLabel* lblcount = nullptr;
    QPushButton* cmdmore = nullptr;
    QPushButton* cmdbook = nullptr;
    QPushButton* cmdclose = nullptr;

    enum Whose { ThisProvider, ChosenProviders, AllProviders };

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // frmnextfree_layout.cpp
    void buildForm();
    void buildFields();
    void buildList();
    void layOutWho(QFormLayout& fields);
    void layOutWhen(QFormLayout& fields);
    void layOutForm();

    void loadLists();
    void loadProviders();
    void connectFields();
    void showPart();
    void showPanel();
    void patientSettled(bool byChoice);
    void showPatient();
    /// The id of the patient who stands in the box; empty for none.
    [[nodiscard]] QString presentPatient() const;
    void followLength();
    [[nodiscard]] int proposedLength() const;

    /// Returns what is searched. When a field keeps that from being known, `missing` says what.
    [[nodiscard]] OpeningWish wish(QString& missing) const;
    [[nodiscard]] std::vector<BookedProvider> wantedProviders() const;
    void goToList();
    void book();

    // frmnextfree_search.cpp
    /// Searches anew when the form has done what it is doing.
    void searchAgain();
    void startSearch();
    void searchOn();
    /// Lists openings until there are some, or until all days are searched.
    void findFirst();
    void addRows();
    void addRow(const Opening& opening);
    /// Returns the selected opening, or nothing.
    [[nodiscard]] std::optional<Opening> selected() const;
    void tellCount();
    void tell(const QString& text);
    void stopSearch(const QString& why);
    void tellFailure(const db::DatabaseError& error);

    const NextFreeRequest request_;
    std::optional<NextFree> found_;
    PatientBox* patient_ = nullptr;
    QHash<int, int> typeMinutes_;                    ///< By the type's colour.
    std::vector<std::pair<QString, int>> services_;  ///< Code and name, and the minutes.
    QString searchedPatient_;                        ///< The id of the patient whose free time is listed.
    bool lengthIsEntered_ = false;                   ///< Whether the user has entered a length.
    std::optional<OpeningSearch> search_;
    std::deque<Opening> pending_;  ///< Found, but not listed yet.
    std::vector<Opening> listed_;
    int mostRows_ = MostRows;
    bool keepsRow_ = false;        ///< Whether the next search selects what is selected now, where it is still free.
    std::optional<Opening> kept_;  ///< What this search selects when it comes to it.
    QTimer due_;                   ///< Runs until a search begins anew.
    QTimer goesOn_;                ///< Runs until the search goes on.
};
