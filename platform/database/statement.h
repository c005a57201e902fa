#pragma once

#include <optional>
#include <QString>
#include <QStringView>
#include <vector>

namespace db {

/// One token of a statement. Blanks and comments are left out.
struct Token {
    enum class Kind { Word, Name, Text, Number, Symbol };  ///< A Name stands in brackets or double quotes.
    Kind kind;
    QStringView text;  ///< As it stands in the statement, quotes and brackets included.

    [[nodiscard]] bool is(QLatin1String word) const;  ///< This word or symbol, in any case.
    [[nodiscard]] bool isName() const { return kind == Kind::Word || kind == Kind::Name; }
    [[nodiscard]] QString name() const;  ///< Without brackets or double quotes.
};

/// The tokens of one statement, which must outlive them. Throws 105 for a quote that is not closed.
std::vector<Token> Tokens(const QString& statement);

/// One call sends one statement: throws 102 "Incorrect syntax near ..." when something stands behind a semicolon that
/// is outside quotes and comments, and 105 for a quote that is not closed.
void RequireOneStatement(const QString& statement);

/// The table that an Insert, Update, Delete or a statement on the schema writes to; nothing for a statement that reads.
std::optional<QString> WrittenTable(const QString& statement);

/// Whether a name stands in a statement: as a table, a column or another name, outside texts.
bool Names(const QString& statement, const QString& name);

/// What a Select takes from where.
struct SelectShape {
    struct Item {
        QString table;     ///< As it stands before the point: a table or its alias; empty for any other item.
        bool all = false;  ///< "*" or "table.*".
    };
    struct Source {
        QString table;  ///< Empty for a Select in brackets.
        QString alias;
    };
    std::vector<Item> items;
    std::vector<Source> sources;  ///< In the order of From.
    bool grouped = false;         ///< Its rows are not rows of a table: Distinct, Group By, Having, Union.
};
SelectShape ShapeOfSelect(const QString& statement);

/// The statement with its texts written so that a SQL Server takes them letter for letter: texts with letters beyond
/// ASCII as national ones (N'...'), which are not squeezed into the code page of the database, and a backslash at the
/// end of a line apart from the line's end, since the server would take both for a broken line and drop them.
QString WithServerTexts(const QString& statement);

}  // namespace db
