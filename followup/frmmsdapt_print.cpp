#include "followup/frmmsdapt.h"

#include <QLabel>

#include "platform/controls/ctdedit.h"
#include "platform/controls/notefield.h"
#include "platform/database/recordset.h"
#include "platform/printing/vsprinter.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/namedpreview.h"
#include "session/session.h"

namespace {

constexpr double TitlePoints = 14;
constexpr double TextPoints = 10;
constexpr int Gap = 240;           // Twips, as the next one.
constexpr int SignatureGap = 960;  // Room to sign by hand.

}  // namespace

void frmmsdApt::cmdprint_Click() {
    QString header;
    try {
        const db::Recordset row(QStringLiteral("Select header from report_headers Where [default] = 1"),
                                Session().Connection);
        if (!row.Eof())
            header = row["header"].text();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading report header. "), error);
        return;
    }
    if (hasReason() && PreviewWithNames([&] { return printedNote(header); }, this))
        audit("Print", "Printed Missed Appointment Note of %1 for patient, %2");
}

VSPrinter frmmsdApt::printedNote(const QString& header) const {
    VSPrinter vp;
    vp.SetTitle(QStringLiteral("Missed Appointment Note"));
    vp.SetHeader(header);
    vp.SetFooter(QStringLiteral("||Page %d"));
    const auto addTitle = [&vp](const QString& text, double points) {
        vp.SetFontBold(true);
        vp.SetFontSize(points);
        vp.AddParagraph(text);
        vp.SetFontBold(false);
        vp.SetFontSize(TextPoints);
        vp.AddSpace(Gap / 2);
    };
    addTitle(QStringLiteral("Missed Appointment Note"), TitlePoints);
    vp.AddParagraph(QStringLiteral("Patient: ") + ShownName(patientName_));
    vp.AddParagraph(QStringLiteral("Date: ") + ctdate->Text());
    vp.AddParagraph(QStringLiteral("Provider: ") + providerName());
    vp.AddParagraph(QStringLiteral("Type: ") + lbltype->text());
    vp.AddSpace(Gap);
    addTitle(QStringLiteral("Reason/Action"), TextPoints);
    vp.AddParagraph(txtreason->toPlainText());
    vp.AddSpace(SignatureGap);
    vp.AddParagraph(QStringLiteral("___________________________\t_____________"));
    vp.AddParagraph(QStringLiteral("Signature\t\t\t\tDate"));
    return vp;
}
