#include "platform/database/readtogether.h"

#include <QSet>

#include "platform/database/connection.h"
#include "platform/database/statement.h"

namespace db {

namespace {

QList<ReadTogether*>& living() {
    static QList<ReadTogether*> objects;
    return objects;
}

}  // namespace

ReadTogether::ReadTogether(Connection& connection, const QStringList& statements) : connection_(connection) {
    QStringList wanted;
    QSet<QString> known;
    for (const QString& statement : statements) {
        // A statement with an open quote would swallow the statements after it.
        const bool isWhole = Ignoring([&] { RequireOneStatement(statement); });
        if (!isWhole || statement.isEmpty() || known.contains(statement) || connection.readAlready(statement))
            continue;
        if (!Tokens(statement).front().is(QLatin1String("Select")))
            throw std::logic_error("Only a Select is read together with others: " + statement.toStdString());
        known << statement;
        wanted << statement;
    }
    std::vector<ResultTable> tables;
    Ignoring([&] { tables = connection.queryTogether(wanted); });
    for (std::size_t i = 0; i < tables.size(); ++i)
        read_[wanted[static_cast<qsizetype>(i)]] = std::move(tables[i]);
    connection.together_.push_back(this);
    living().push_back(this);
}

ReadTogether::~ReadTogether() {
    connection_.together_.removeOne(this);
    living().removeOne(this);
}

void ReadTogether::ForgetAll() {
    for (ReadTogether* together : std::as_const(living()))
        together->forgetWhatNames({});
}

void ReadTogether::forgetWhatNames(const std::optional<QString>& table) {
    read_.removeIf([&](const auto& read) { return !table || Names(read.key(), *table); });
}

}  // namespace db
