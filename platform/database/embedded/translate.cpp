#include "platform/database/embedded/translate.h"

#include "platform/database/embedded/definition.h"
#include "platform/database/embedded/names.h"
#include "platform/database/embedded/select.h"
#include "platform/database/embedded/write.h"

namespace db::embedded {

namespace {

void readRows(Context& context, Translation& translation) {
    SelectText select = ReadSelect(context);
    translation.sql = std::move(select.sql);
    for (SelectColumn& column : select.columns) {
        translation.columns.push_back({ToQt(column.name), ToQt(column.table), ToColumnType(column.kind)});
        translation.typesFromRows.push_back(column.kind == Kind::Unknown || column.kind == Kind::Null);
    }
}

/// Returns false when the statement begins with none of these words.
bool readWrite(Context& context, Translation& translation) {
    translation.kind = Translation::Kind::Write;
    if (context.in.acceptWord("insert"))
        translation.sql = ReadInsert(context);
    else if (context.in.acceptWord("update"))
        translation.sql = ReadUpdate(context);
    else if (context.in.acceptWord("delete"))
        translation.sql = ReadDelete(context);
    else
        return false;
    return true;
}

bool readDefinition(Context& context, Translation& translation) {
    translation.kind = Translation::Kind::Definition;
    if (context.in.acceptWord("create"))
        translation.sql = ReadCreate(context);
    else if (context.in.acceptWord("alter"))
        translation.sql = ReadAlter(context);
    else if (context.in.acceptWord("drop"))
        translation.sql = ReadDrop(context);
    else
        return false;
    return true;
}

}  // namespace

Translation Translate(std::string_view statement, Catalog& catalog) {
    Translation translation;
    TokenReader in(Tokenise(statement));
    Context context{.in = in, .catalog = catalog, .parameters = translation.parameters};
    if (in.atWord("select"))
        readRows(context, translation);
    else if (!readWrite(context, translation) && !readDefinition(context, translation))
        in.fail();
    in.acceptOperator(";");
    if (!in.atEnd())
        in.fail();
    return translation;
}

}  // namespace db::embedded
