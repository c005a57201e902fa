#pragma once

#include <QString>

/// Returns the n-th field of a text whose fields are joined by "|", counted from 1 (0 counts as 1). Past the end it is
/// empty.
QString GetPipeField(const QString& text, int n);

/// Makes free text safe for the formats that join fields by "|" or ";". Line feeds, tabs and other control characters
/// become one blank each. Carriage returns, ";" and "|" are removed.
QString CleanFieldText(const QString& text);

/// Returns a row of a list, whose cells are joined by ";", as a row of a printed table, whose cells are joined by "|".
QString insertpipes(const QString& text);
