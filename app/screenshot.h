#pragma once

#include <QString>

class QWidget;

/// Drops the remarks and warnings of the windowing platform; before the application is made.
void QuietenPlatform();

/// Lets the program start with nobody at the screen: messages go to standard error and are answered with OK or No, the
/// provider list is answered with the provider it offers first, and any other form is cancelled.
void AnswerWithoutUser();

/// Saves the window as a PNG. False, after a line on standard error, when the file cannot be written.
bool SaveScreenshot(QWidget& window, const QString& file);
