#pragma once

#include <QDialog>
#include <vector>

#include "platform/controls/ctlist.h"
#include "platform/database/recordset.h"

class VSPrinter;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

/// A dialog that finds rows by a text, lists them, prints them and goes to one of them. The derived form decides which
/// rows are found, how they are listed and where one leads.
class FindDialog : public QDialog {
    Q_OBJECT

  public:
    QLineEdit* txtfind = nullptr;
    QPushButton* cmdfind = nullptr;
    ctList* ctList1 = nullptr;
    QLabel* lblcount = nullptr;
    QCheckBox* ckselected = nullptr;
    QPushButton* cmdprint = nullptr;
    QPushButton* cmdgoto = nullptr;
    QPushButton* cmdclose = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    struct Texts {
        QString question;   ///< The label above the text to find.
        QString header;     ///< The printed pages' header in three pieces: "|Appointments|".
        QString one;        ///< The count of one hit: "1 appointment".
        QString many;       ///< The count of several hits: "%1 appointments".
        QString selectOne;  ///< Shown when only selected lines are to be printed and none is selected.
        QString failure;    ///< Stands before the reason when a statement failed.
        QString widths;     ///< The printed columns' widths in twips, as printing::ParseTable reads them.
        QString titles;     ///< The printed columns' titles, as printing::ParseTable reads them.
    };

    FindDialog(Texts texts, std::vector<ListColumn> columns, QWidget* parent);

    /// Returns the statement that finds the rows for the text.
    [[nodiscard]] virtual QString statementFor(const QString& text) const = 0;
    /// Returns the cells of a row as the list shows them.
    [[nodiscard]] virtual QStringList listLine(const db::Recordset& row) const = 0;
    /// Lists the rows that were found, of which there is one at least. They are listed as they come unless the derived
    /// form has an order of its own. May throw db::DatabaseError.
    virtual void listHits(db::Recordset& rows);
    /// Returns the words that count the rows on the list.
    [[nodiscard]] virtual QString countText(int hits) const;
    /// Marks the descriptions that name a patient by ctList::NameCell, so that they are hidden with the patients'
    /// names. It is called after all rows were listed, with the cursor at the first row. May throw db::DatabaseError.
    virtual void nameHits(db::Recordset& rows) = 0;
    /// Goes to the row with this key and accepts the form, or says in lblcount why that is not possible. May throw
    /// db::DatabaseError.
    virtual void goTo(qint64 key) = 0;

    static constexpr int DescriptionColumn = 1;

    /// Adds a choice of what is searched, below the text.
    void addChoice(QWidget* choice);
    /// Replaces the columns of the list and of the printed table. The hits of before are searched for again.
    void changeColumns(std::vector<ListColumn> columns, const QString& widths, const QString& titles);

  private:
    void buildForm(std::vector<ListColumn> columns);
    void layOutForm();
    void cmdfind_Click();
    void addHits();
    void allowResults(bool allowed);
    void cmdgoto_Click();
    void cmdprint_Click();
    [[nodiscard]] VSPrinter printedList(bool selectedOnly) const;

    Texts texts_;
    QVBoxLayout* choices_ = nullptr;
};
