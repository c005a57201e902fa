#pragma once

#include <functional>
#include <QDialog>

#include "platform/database/recordset.h"

class FillProgress;
class ListFiller;
class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QMenuBar;
class QToolBar;
class ctList;

/// The lists of the address book, in the order in which cbogroups offers them.
enum class AddressList { Personal, Patients, ReferralSources, InsuranceCompanies };

/// Shows one of four lists of addresses, prints it and opens mails to its people. Personal are the contacts of the
/// logged-on user, whom nobody else sees; users who may write can add, edit and delete them. The other three lists are
/// read only.
///
/// A long list is filled while it can be used. When names are hidden, what tells of a patient is hidden here and on
/// paper.
class frmabook : public QDialog {
    Q_OBJECT

  public:
    explicit frmabook(QWidget* parent = nullptr);

    // These fill the list with the user's own contacts, the patients whom the user may see, the referral sources and
    // the insurance companies. When a list cannot be read, the user is told why, and it stays empty.
    void loadcontacts();
    void loadpatients();
    void loadref();
    void loadins();
    /// Shows the whole list as it will be on paper, where it can be printed.
    void printlist();
    /// Enables or disables Edit, New, Delete, E-Mail and Print together, as far as the user's rights allow.
    void enablecmenu(bool enabled);
    /// Returns an address of several lines in one line. A carriage return becomes ", ", and a line feed is removed.
    [[nodiscard]] static QString stripcr(const QString& text);

    [[nodiscard]] AddressList ShownList() const;

    QMenuBar* menus = nullptr;
    QMenu* mnuFile = nullptr;
    QToolBar* btn = nullptr;
    QAction* mnuFPrint = nullptr;
    QAction* mnuFemail = nullptr;
    QAction* mnuFNew = nullptr;
    QAction* mnuFEdit = nullptr;
    QAction* mnuFDelete = nullptr;
    QAction* mnuFExit = nullptr;
    QComboBox* cbogroups = nullptr;
    QLineEdit* Text1 = nullptr;
    ctList* ctList1 = nullptr;
    QLabel* pnlcount = nullptr;
    FillProgress* pnlprogress = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

    /// Lists that are longer are printed only after a question.
    static constexpr int QuicklyPrinted = 2000;

  protected:
    /// Moves in the list with the arrow keys of the search box, and opens the selected contact with its Enter.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// Makes the cells of the list of the cursor's current row.
    using CellsOf = std::function<QStringList(const db::Recordset& row)>;
    struct Source {
        QStringList headings;
        QString statement;
        const char* key;      ///< The column of the item data.
        const char* failure;  ///< The text that begins the message about a list that cannot be read.
        CellsOf cells;
    };

    // Building the form; these members are in frmabook_form.cpp.
    void buildForm();
    void buildCommands();
    void buildToolBar();
    void layOutForm();
    QAction* command(QMenu& menu, const char* name, const QString& text, const char* icon, const QKeySequence& key);

    // Loading; these members are in frmabook_load.cpp.
    void load(const Source& source);
    void setHeadings(const QStringList& headings);
    void loadcompanies(const QString& statement, const char* name, const char* failure);
    [[nodiscard]] QString phone(const db::Recordset& row, const char* column) const;
    [[nodiscard]] QString phoneWithExtension(const db::Recordset& row, const char* column) const;

    void connectControls();
    void cbogroups_Click();
    void setcommands();
    void Text1_Change();
    void tellCount();
    [[nodiscard]] bool mayPrint(int rows) const;
    /// The key of the selected contact; 0 when none is selected.
    [[nodiscard]] int selectedContact() const;
    void openContact(int contactId);
    void reloadContacts(int contactId, int position);
    void mnuFEdit_Click();
    void mnuFDelete_Click();
    void mnuFemail_Click();

    ListFiller* filler_ = nullptr;
    QString phoneFormat_;
};
