#pragma once

#include <optional>
#include <QString>

/// Masks as the practice writes them: "(###) ###-####". # stands for a digit, A for a letter, N for either; everything
/// else stands for itself.
namespace mask {

/// How many characters a mask asks for.
[[nodiscard]] int Places(const QString& mask);
/// The characters of `text` that stand at the mask's places, in order: "(555) 123" and "555-123" are "555123". Signs
/// between them, the mask's own or others, and an "x" before an extension are passed over. Nothing when a character
/// does not fit or more follow than the mask has places.
[[nodiscard]] std::optional<QString> Raw(const QString& mask, const QString& text);
/// The characters in the mask's form, up to the last of them: "5551" is "(555) 1". Reads back by Raw. Characters beyond
/// the mask's places are left out.
[[nodiscard]] QString Form(const QString& mask, const QString& raw);
/// The mask as a hint: "(___) ___-____".
[[nodiscard]] QString Hint(const QString& mask);

}  // namespace mask
