#pragma once

class QLayout;
class QLabel;
class QString;
class QWidget;

/// A label for the text of a notice: plain text over several lines, wide enough to read, and it can be copied.
[[nodiscard]] QLabel* NoticeLabel(const QString& name, const QString& text, QWidget* parent);
/// The head of a dialog that tells something: the warning picture and, beside it, what stands in `text`.
[[nodiscard]] QLayout* NoticeLayout(QLayout* text, QWidget* parent);
