#pragma once

#include <functional>

class QWidget;
class VSPrinter;

/// Shows the document that `make` returns in the preview, until that is closed, and returns whether the user has
/// printed or saved it. When the patients' names are hidden or shown meanwhile, the document is made anew, so that no
/// name is printed that is hidden on the screen.
bool PreviewWithNames(const std::function<VSPrinter()>& make, QWidget* parent);
