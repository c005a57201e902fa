#include "output/reportpage.h"

#include <QRegularExpression>

#include "platform/desktop/localefacts.h"
#include "platform/printing/vsprinter.h"
#include "platform/text/plaintext.h"
#include "session/session.h"

namespace {

constexpr double Points = 10;
constexpr int GapBelow = 240;  // Twips.

}  // namespace

ReportRequest WithinRights(ReportRequest request) {
    const SessionValues& session = Session();
    if (session.AllProviders || request.provider.compare(session.UID, Qt::CaseInsensitive) == 0)
        return request;
    request.provider = session.UID;
    request.providerName = session.UserName;
    return request;
}

QString HeadingLines(const QString& header) {
    static const QRegularExpression end(QStringLiteral("\\s*[|\\n]\\s*"));
    return ManyLines(header).split(end, Qt::SkipEmptyParts).join(QLatin1Char('\n')).trimmed();
}

void BeginReport(VSPrinter& vp, const QString& title, const ReportRequest& request, const QString& above) {
    const QString dates = QStringLiteral("%1 to %2").arg(ShortDateText(request.from), ShortDateText(request.to));
    vp.StartDoc();
    vp.SetTitle(title);
    vp.SetFooter(QStringLiteral("%1, %2||Page %d").arg(title, dates));
    vp.SetFontName(QStringLiteral("Arial"));
    vp.SetFontSize(Points);
    vp.SetFontBold(true);
    if (!above.trimmed().isEmpty())
        vp.AddParagraph(HeadingLines(above));
    vp.AddParagraph(title);
    vp.SetFontBold(false);
    vp.AddParagraph(QStringLiteral("Dates: ") + dates);
    vp.AddParagraph(QStringLiteral("Provider: ") +
                    (request.provider.isEmpty() ? QStringLiteral("All Providers") : OneLine(request.providerName)));
    vp.AddSpace(GapBelow);
}
