#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <QStringList>

#include "platform/database/embedded/embeddedengine.h"
#include "platform/database/error.h"

/// A database in memory, alone for one test, with what the statements of a test need.
class Practice {
  public:
    Practice() : engine(QStringLiteral(":memory:"), true) {}
    explicit Practice(const char* tables) : Practice() { run(tables); }

    /// Statements, one a line.
    void run(const char* statements) {
        for (const QString& statement : QString::fromUtf8(statements).split(u'\n', Qt::SkipEmptyParts))
            if (!statement.trimmed().isEmpty())
                engine.execute(statement, {});
    }

    /// The rows of a statement, fields joined by "|", null as "null".
    QStringList rows(const QString& statement, const std::vector<db::Value>& bound = {}) {
        const db::ResultTable table = engine.query(statement, bound);
        QStringList lines;
        for (int row = 0; row < table.rowCount(); ++row) {
            QStringList fields;
            for (int column = 0; column < table.columnCount(); ++column) {
                const db::Field field = table.at(row, column);
                fields.append(field.isNull() ? QStringLiteral("null") : field.text());
            }
            lines.append(fields.join(u'|'));
        }
        return lines;
    }

    QString one(const QString& statement, const std::vector<db::Value>& bound = {}) {
        return rows(statement, bound).join(u'/');
    }

    /// The number and sentence of the failure, "" when there was none.
    QString failure(const QString& statement, const std::vector<db::Value>& bound = {}) {
        try {
            engine.execute(statement, bound);
        } catch (const db::DatabaseError& error) {
            EXPECT_EQ(error.statement, statement);
            return QStringLiteral("%1 %2").arg(error.number).arg(error.description);
        }
        return {};
    }

    int failureNumber(const QString& statement, const std::vector<db::Value>& bound = {}) {
        return failure(statement, bound).section(u' ', 0, 0).toInt();
    }

    db::embedded::EmbeddedEngine engine;
};

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
