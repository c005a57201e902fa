#include <QComboBox>
#include <QLocale>

#include "data/pipefields.h"
#include "people/frmabook.h"
#include "platform/controls/ctlist.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/printing/vsprinter.h"
#include "session/listfiller.h"
#include "session/namedpreview.h"

namespace {

/// Adds a paragraph for each cell that is not empty, as the user sees it, and an empty one.
void addRow(VSPrinter& vp, const ctList& list, int row) {
    for (int column = 1; column <= list.ColumnCount(); ++column)
        if (const QString value = list.ShownCell(row, column); !value.isEmpty())
            vp.AddParagraph(list.Header(column) + QStringLiteral(": ") + value);
    vp.AddParagraph({});
}

}  // namespace

void frmabook::printlist() {
    const BusyPointer busy;
    filler_->Finish();
    if (filler_->IsCutShort()) {
        MsgBox(tr("The list could not be read to its end. Choose it again, then print it."), ExclamationBox,
               windowTitle());
        return;
    }
    if (!mayPrint(ctList1->RowCount()))
        return;
    const QString name = ShownList() == AddressList::Personal ? QStringLiteral("Contacts List")
                                                              : cbogroups->currentText() + QStringLiteral(" List");
    const auto printed = [this, &name] {
        VSPrinter vp;
        vp.SetTitle(name);
        vp.SetHeader(CleanFieldText(name));
        vp.SetFooter(QStringLiteral("||Page %d"));
        for (int row = 0; row < ctList1->RowCount(); ++row)
            addRow(vp, *ctList1, row);
        return vp;
    };
    PreviewWithNames(printed, this);
}

bool frmabook::mayPrint(int rows) const {
    return rows <= QuicklyPrinted ||
           MsgBox(tr("The list has %1 rows. Do you want to print all of them?").arg(QLocale().toString(rows)), YesNoBox,
                  windowTitle()) == Answer::Yes;
}
