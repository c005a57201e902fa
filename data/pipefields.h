#pragma once

#include <QString>

/// The n-th field of a text whose fields are joined by "|", counted from 1 (0 counts as 1). Past the end it is empty.
QString GetPipeField(const QString& text, int n);

/// Makes free text safe for the formats that join fields by "|" or ";": line feeds, tabs and other control
/// characters become one blank each; carriage returns, ";" and "|" are dropped.
QString CleanFieldText(const QString& text);

/// A row of a list, whose cells are joined by ";", as the row of a printed table, whose cells are joined by "|".
QString insertpipes(const QString& text);
