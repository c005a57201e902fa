#include "search/listprint.h"

#include "data/pipefields.h"
#include "platform/controls/ctlist.h"

QString TableBody(const ctList& list, bool selectedOnly) {
    QString body;
    for (int row = 0; row < list.RowCount(); ++row)
        if (!selectedOnly || list.selectionModel()->isRowSelected(row))
            body += insertpipes(list.RowText(row)) + u';';
    return body;
}
