#pragma once

namespace db::embedded {

class FunctionCall;

/// The server's functions on texts, with its names and error numbers. Positions count from 1, and positions and lengths
/// are in UTF-16 units.
void Length(const FunctionCall& call);
void Upper(const FunctionCall& call);
void Lower(const FunctionCall& call);
void Left(const FunctionCall& call);       ///< Throws 537 for a length below 0.
void Right(const FunctionCall& call);      ///< Throws 536 for a length below 0.
void Substring(const FunctionCall& call);  ///< Throws 537 for a length below 0.
void CharIndex(const FunctionCall& call);
void PatIndex(const FunctionCall& call);
void Replace(const FunctionCall& call);
void Stuff(const FunctionCall& call);
void Replicate(const FunctionCall& call);
void Reverse(const FunctionCall& call);
/// svs_char(code, last) serves Char and NChar. It gives null for a code below 0 or beyond the last.
void Character(const FunctionCall& call);
/// ascii(text) serves Ascii and Unicode. It gives the code of the first character.
void CodeOf(const FunctionCall& call);
/// svs_cast_text(value, length, type) serves Convert and Cast to text. The text is cut to `length` where that is above
/// 0. Where it is below 0, the text is cut to or filled with blanks to the absolute length. A whole number is never
/// cut: it becomes "*", or error 8115 where the type is of Unicode.
void CastText(const FunctionCall& call);

}  // namespace db::embedded
