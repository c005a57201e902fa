#pragma once

namespace db::embedded {

class FunctionCall;

/// The server's functions on texts, with its names and errors. Positions and lengths count from 1, in UTF-16 units.
void Length(const FunctionCall& call);
void Upper(const FunctionCall& call);
void Lower(const FunctionCall& call);
void Left(const FunctionCall& call);       ///< 537 for a length below 0.
void Right(const FunctionCall& call);      ///< 536 for a length below 0.
void Substring(const FunctionCall& call);  ///< 537 for a length below 0.
void CharIndex(const FunctionCall& call);
void PatIndex(const FunctionCall& call);
void Replace(const FunctionCall& call);
void Stuff(const FunctionCall& call);
void Replicate(const FunctionCall& call);
void Reverse(const FunctionCall& call);
/// svs_char(code, last): Char and NChar; null for a code that is no character, being below 0 or beyond the last.
void Character(const FunctionCall& call);
/// ascii(text): Ascii and Unicode, the code of the first character.
void CodeOf(const FunctionCall& call);
/// svs_cast_text(value, length, type): Convert and Cast to text, cut to the length where that is above 0 and filled with
/// blanks to it where it is below. A whole number is never cut: it becomes "*", or 8115 where the type is of Unicode.
void CastText(const FunctionCall& call);

}  // namespace db::embedded
