#include "data/courtesycalls.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"

namespace {

constexpr int NoPicture = -1;

int pictureOf(qint64 category) {
    switch (category) {
        case 1:
            return 7;
        case 2:
            return 4;
        case 3:
            return 5;
        case 4:
            return 6;
        default:
            return NoPicture;
    }
}

}  // namespace

QString CallIconStatement(const QString& code) {
    if (code.isEmpty())
        return {};
    return db::Sql("Select CallCategory from CourtesyCallCodes Where CallService = 'CP' and CallCode = '{}'", code);
}

QString CallTextStatement(const QString& code) {
    if (code.isEmpty())
        return {};
    return db::Sql("Select CallDescription from CourtesyCallCodes Where CallService = 'CP' and CallCode = '{}'", code);
}

int GetCallStatusIcon(db::Connection& main, const QString& code) {
    int picture = NoPicture;
    if (code.isEmpty())
        return picture;
    db::Ignoring([&] {
        const db::Recordset call(CallIconStatement(code), main);
        if (!call.Eof())
            picture = pictureOf(call[0].integer());
    });
    return picture;
}

QString GetCallStatusText(db::Connection& main, const QString& code) {
    QString description;
    if (code.isEmpty())
        return description;
    db::Ignoring([&] {
        const db::Recordset call(CallTextStatement(code), main);
        if (!call.Eof())
            description = call[0].text();
    });
    return description;
}
