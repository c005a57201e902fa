// What a SQL Server answers to statements of every kind, asked of the engine at hand: probes.txt tells how.

#include <gtest/gtest.h>

#include <QFile>

#include "platform/database/recordset.h"
#include "tests/support/testdatabase.h"

namespace {

QString cellOf(const db::Value& value) {
    if (value.isNull())
        return QStringLiteral("NULL");
    if (const auto* moment = std::get_if<QDateTime>(&value.data()))
        return moment->toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    return value.text();
}

QString rowsOf(const QString& statement, db::Connection& connection) {
    db::Recordset rows(statement, connection);
    QStringList lines;
    const auto taken = rows.GetRows();
    for (const auto& row : taken) {
        QStringList cells;
        for (const db::Value& cell : row)
            cells.append(cellOf(cell));
        lines.append(cells.join(QLatin1Char('|')));
    }
    return lines.join(QStringLiteral(" / "));
}

QString answerTo(const QString& statement, db::Connection& connection) {
    try {
        if (statement.startsWith(QLatin1String("Select")))
            return rowsOf(statement, connection);
        return QStringLiteral("rows %1").arg(connection.Execute(statement));
    } catch (const db::DatabaseError& error) {
        return QStringLiteral("!%1 %2").arg(error.number).arg(error.description);
    }
}

class Probes : public testing::Test {
  protected:
    void ask(QString line) {
        const bool everywhere = !line.startsWith(QLatin1String("~ "));
        if (!everywhere && otherMake_)
            return;
        if (!everywhere)
            line.remove(0, 2);
        const qsizetype arrow = line.lastIndexOf(QLatin1String(" =>"));
        const QString statement = line.left(arrow);
        const QString answer = answerTo(statement, database_.connection());
        ++asked_;
        if (arrow < 0)
            return;
        const QString expected = line.mid(arrow + 4);
        EXPECT_TRUE(agrees(answer, expected)) << statement.toStdString() << "\n  is answered: " << answer.toStdString()
                                              << "\n  instead of: " << expected.toStdString();
    }

    int asked_ = 0;

  private:
    [[nodiscard]] bool agrees(const QString& answer, const QString& expected) const {
        if (!expected.startsWith(QLatin1Char('!')))
            return answer == expected;
        // A text that is too long had another number in older servers.
        const QString number = answer.section(QLatin1Char(' '), 0, 0);
        return number == expected || (expected == QLatin1String("!2628") && number == QLatin1String("!8152")) ||
               (otherMake_ && answer.startsWith(QLatin1Char('!')));
    }

    TestDatabase database_;
    bool otherMake_ =
        database_.isOnServer() && !database_.text("Select @@Version").startsWith(QLatin1String("Microsoft SQL Server"));
};

TEST_F(Probes, AreAnsweredAsASqlServerDoes) {
    QFile file(QStringLiteral(STATEMENTS "/probes.txt"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (!line.isEmpty() && !line.startsWith(QLatin1Char('#')))
            ask(line);
    }
    EXPECT_GT(asked_, 200);
}

}  // namespace
