#pragma once

#include <QDialog>
#include <QHash>
#include <QSet>
#include <vector>

#include "appointments/waitlist.h"

class QLabel;
class QPushButton;
class VSPrinter;
class ctList;

/// What the wait list is opened from: the visit that is selected in the view, which a new entry begins with.
struct WaitOpening {
    QString patientId = {};  ///< Empty where no patient's visit is selected.
    int minutes = 0;         ///< The length of the visit; 0 without one.
    QString providerId = {};
};

/// Lists the open entries of the wait list in the order of waiting, with what each patient waits for. Entries that are
/// offered nothing say why: the date has passed, the patient or all wanted providers are archived or gone. Entries are
/// added, edited and closed here, and the list is printed. A user who may not write can only read and print it.
class frmwait : public QDialog {
    Q_OBJECT

  public:
    explicit frmwait(WaitOpening opening, QWidget* parent = nullptr);

    ctList* ctList1 = nullptr;
    QLabel* lblcount = nullptr;
    QPushButton* cmdadd = nullptr;
    QPushButton* cmdedit = nullptr;
    QPushButton* cmdclosed = nullptr;
    QPushButton* cmdprint = nullptr;
    QPushButton* cmdclose = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

  private:
    void buildForm();
    void layOutForm();
    void connectControls();
    /// Reads the entries anew. The entry with this id is selected, or else the row where the selection was.
    void load(int selectId);
    void read();
    void addRow(const WaitRow& row);
    void allowCommands();
    void cmdadd_Click();
    void cmdedit_Click();
    void cmdclosed_Click();
    void cmdprint_Click();
    void runEntry(const WaitRow& row);
    /// Why the entry is offered nothing, or "Waiting".
    [[nodiscard]] QString stateOf(const WaitRow& row) const;
    [[nodiscard]] QString providersText(const WaitRow& row) const;
    [[nodiscard]] VSPrinter printedList() const;

    const WaitOpening opening_;
    std::vector<WaitRow> rows_;
    QHash<QString, QString> names_;  ///< The surnames of all providers, by id in capitals.
    QSet<QString> active_;           ///< The ids in capitals of those who are not archived.
};
