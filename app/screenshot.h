#pragma once

#include <QString>

class QWidget;

/// Drops the remarks and warnings of the windowing platform. It has to be called before the application is made.
void QuietenPlatform();

/// Lets the program start without a user. Messages go to standard error and are answered with OK or No. The provider
/// list is answered with the provider that it offers first. Any other form is cancelled.
void AnswerWithoutUser();

/// Saves a picture of the window as a PNG. When the file cannot be written, it writes a line to standard error and
/// returns false.
bool SaveScreenshot(QWidget& window, const QString& file);
