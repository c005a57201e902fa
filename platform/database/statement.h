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
    QStringView text;  ///< The token as the statement writes it, with quotes and brackets.

    [[nodiscard]] bool is(QLatin1String word) const;  ///< Whether the token is this word or symbol, in any case.
    [[nodiscard]] bool isName() const { return kind == Kind::Word || kind == Kind::Name; }
    [[nodiscard]] QString name() const;  ///< The name without brackets or double quotes.
};

/// Returns the tokens of one statement, which must outlive them. Throws 105 for a quote that is not closed.
std::vector<Token> Tokens(const QString& statement);

/// Makes sure that a text is one statement. Throws 102 "Incorrect syntax near ..." when something follows a semicolon
/// that is outside quotes and comments, and 105 for a quote that is not closed.
void RequireOneStatement(const QString& statement);

/// Returns the table that an Insert, Update, Delete or schema statement writes to, or nothing for a statement that
/// reads.
std::optional<QString> WrittenTable(const QString& statement);

/// Whether a name occurs in a statement as a table, a column or another name. Texts in quotes do not count.
bool Names(const QString& statement, const QString& name);

/// The columns and tables that a Select reads.
struct SelectShape {
    struct Item {
        QString table;     ///< The word before the point: a table or its alias; empty for any other item.
        bool all = false;  ///< "*" or "table.*".
    };
    struct Source {
        QString table;  ///< Empty for a Select in brackets.
        QString alias;
    };
    std::vector<Item> items;
    std::vector<Source> sources;  ///< In the order of From.
    bool grouped = false;         ///< Whether its rows are no rows of a table: Distinct, Group By, Having, Union.
};
SelectShape ShapeOfSelect(const QString& statement);

/// Returns the statement with its texts written so that a SQL Server takes them letter for letter. Texts with letters
/// beyond ASCII become national ones (N'...'), because the server squeezes others into the code page of the database. A
/// backslash at the end of a line is moved away from the line's end, because the server would take the two for a
/// continued line and drop them.
QString WithServerTexts(const QString& statement);

}  // namespace db
