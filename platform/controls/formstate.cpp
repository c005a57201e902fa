#include "platform/controls/formstate.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>

#include "platform/controls/ctlist.h"

namespace {

// A popup over the form is left out, because it comes and goes with a key and has fields of its own.
template <typename Field, typename Text>
void add(QStringList& state, const QWidget& form, const Text& textOf) {
    for (const Field* field : form.findChildren<Field*>())
        if (field->window() == form.window())
            state << textOf(*field);
}

QString selectedRows(const QListWidget& list) {
    QString rows;
    if (list.selectionMode() != QAbstractItemView::SingleSelection)
        for (int row = 0; row < list.count(); ++row)
            rows += list.item(row)->isSelected() ? QLatin1Char('x') : QLatin1Char('-');
    return rows;
}

// Only check boxes count. Rows without one are an offer of the program, not an entry of the user.
QString checkedRows(const ctList& list) {
    QString rows;
    for (int column = 1; column <= list.ColumnCount(); ++column)
        for (int row = 0; row < list.RowCount(); ++row)
            if (list.model()->index(row, column - 1).data(Qt::CheckStateRole).isValid())
                rows += list.Checked(row, column) ? QLatin1Char('x') : QLatin1Char('-');
    return rows;
}

}  // namespace

QStringList FormState(const QWidget& form) {
    QStringList state;
    add<QLineEdit>(state, form, [](const QLineEdit& field) { return field.text(); });
    add<QPlainTextEdit>(state, form, [](const QPlainTextEdit& field) { return field.toPlainText(); });
    add<QComboBox>(state, form, [](const QComboBox& field) { return QString::number(field.currentIndex()); });
    add<QAbstractButton>(state, form,
                         [](const QAbstractButton& field) { return QString::number(field.isChecked() ? 1 : 0); });
    add<QListWidget>(state, form, selectedRows);
    add<ctList>(state, form, checkedRows);
    return state;
}
