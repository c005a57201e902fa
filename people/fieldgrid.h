#pragma once

#include <QString>

class QGridLayout;
class QLabel;
class QWidget;
class TextField;
class ctMEdit;

// The grid of a form with many small fields. Each row has a heading and then FieldParts parts of equal width, over
// which the fields of the row are spread. The label of a field stands above it.

inline constexpr int FieldParts = 24;

/// The mask of the extension of a work telephone, which continues the practice's telephone mask.
inline const QString ExtensionMask = QStringLiteral(" #####");

/// Whether a field must be filled.
enum class FieldNeed { Optional, Required };

/// The label of a field. Its text, without the mark of the Alt key, is also the field's name for screen readers.
struct FieldCaption {
    QString text;
    FieldNeed need = FieldNeed::Optional;
};

/// A mask as ctMEdit::setMask takes it.
struct FieldMask {
    QString mask;
    QString extension;
};

/// Gives the widget an empty grid.
QGridLayout* FieldGrid(QWidget* fields);
/// Writes the heading of a row.
void AddHeading(QGridLayout& grid, int row, const QString& text);
/// Puts a field with its label above it at `part` of a row; it is `parts` wide. Returns the label.
QLabel* PlaceField(QGridLayout& grid, int row, int part, int parts, const FieldCaption& caption, QWidget* field);

/// Makes a field that keeps at most that many characters.
TextField* LimitedField(const char* name, int mostCharacters, QWidget* parent);
ctMEdit* MaskedField(const char* name, const FieldMask& mask, int mostCharacters, QWidget* parent);
