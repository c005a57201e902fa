#include "appointments/patientsearch.h"

#include "platform/controls/ctlist.h"
#include "platform/desktop/desktop.h"

void FindInPatientList(ctList& list, const QString& text) {
    for (int row = 0; row < list.RowCount() && !text.isEmpty(); ++row) {
        if (!list.ItemText(row).contains(text, Qt::CaseInsensitive))
            continue;
        list.SelectRow(row);
        list.setFocus();
        return;
    }
    MsgBox(QStringLiteral("Name not found."), InformationBox, QStringLiteral("Find"));
}
