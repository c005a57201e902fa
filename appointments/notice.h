#pragma once

class QLayout;
class QLabel;
class QString;
class QWidget;

/// Returns a new label for the text of a notice, owned by `parent`. The text is plain, breaks into lines wide enough to
/// read, and can be copied.
[[nodiscard]] QLabel* NoticeLabel(const QString& name, const QString& text, QWidget* parent);
/// Returns the head of a dialog that tells something: the warning picture and, beside it, the layout `text`.
[[nodiscard]] QLayout* NoticeLayout(QLayout* text, QWidget* parent);
