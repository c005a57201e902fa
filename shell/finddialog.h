#pragma once

#include <QDialog>
#include <vector>

#include "platform/controls/ctlist.h"
#include "platform/database/recordset.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// A dialog that finds rows by a text, lists them, prints them and goes to one. What is found, how it is listed and
/// where it leads is the form's own.
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
        QString question;   ///< Above the text to find.
        QString header;     ///< Of the pages that are printed, in three pieces: "|Appointments|".
        QString one;        ///< "1 appointment"
        QString many;       ///< "%1 appointments"
        QString selectOne;  ///< Where selected lines are to be printed and none is.
        QString failure;    ///< Before the reason of a statement that failed.
        QString widths;     ///< Of the printed columns, in twips, as printing::ParseTable reads them.
        QString titles;     ///< The same for their titles.
    };

    FindDialog(Texts texts, std::vector<ListColumn> columns, QWidget* parent);

    /// The statement that finds the rows which fit the text.
    [[nodiscard]] virtual QString statementFor(const QString& text) const = 0;
    /// A row as the list shows it.
    [[nodiscard]] virtual QStringList listLine(const db::Recordset& row) const = 0;
    /// The rows were all listed: the description of those that name a patient is to be hidden with the names
    /// (ctList::NameCell). May throw db::DatabaseError.
    virtual void nameHits(db::Recordset& rows) = 0;
    /// Goes to the row with this key, and accepts the form; or says in lblcount why it cannot. May throw
    /// db::DatabaseError.
    virtual void goTo(qint64 key) = 0;

    static constexpr int DescriptionColumn = 1;

  private:
    void buildForm(std::vector<ListColumn> columns);
    void layOutForm();
    void cmdfind_Click();
    void addHits();
    void allowResults(bool allowed);
    void cmdgoto_Click();
    void cmdprint_Click();

    Texts texts_;
};
