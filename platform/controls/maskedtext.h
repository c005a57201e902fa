#pragma once

#include <optional>
#include <QString>

/// Masks as the practice writes them: "(###) ###-####". # stands for a digit, A for a letter and N for either.
/// Everything else stands for itself.
namespace mask {

/// Returns how many characters a mask asks for.
[[nodiscard]] int Places(const QString& mask);
/// Returns the characters of `text` at the mask's places, in order: "(555) 123" and "555-123" give "555123". Signs
/// between them, the mask's own or others, and an "x" before an extension are passed over. Returns nothing when a
/// character does not fit or when there are more than the mask has places.
[[nodiscard]] std::optional<QString> Raw(const QString& mask, const QString& text);
/// Returns the characters in the mask's form, up to the last of them: "5551" gives "(555) 1". Raw reads it back.
/// Characters beyond the mask's places are left out.
[[nodiscard]] QString Form(const QString& mask, const QString& raw);
/// Returns the mask as a hint: "(___) ___-____".
[[nodiscard]] QString Hint(const QString& mask);

}  // namespace mask
